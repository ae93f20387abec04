#pragma once

// The bar below the table in which a text is looked for and replaced.

#include "ui/list_table_find.h"

#include <QWidget>

#include <functional>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QToolButton;

namespace sheetwright {

class Application;

class ListTableFindBar : public QWidget {
  public:
    explicit ListTableFindBar(const Application& application, QWidget* parent = nullptr);

    // What the bar asks for.
    std::function<void(bool isForward)> Find;
    std::function<void()> Replace;
    std::function<void()> ReplaceAll;
    std::function<void()> Changed;  // another text, or case
    std::function<void()> Closed;

    // Shows the bar, with `text` to look for unless that is empty, with or without the second row.
    void Start(const QString& text, bool isReplacing);
    void Tell(const QString& text);
    [[nodiscard]] ListQuery Query() const;
    [[nodiscard]] QString Replacement() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] QLineEdit* AddLine(int row, const char* name, const QString& caption);
    QToolButton* AddButton(int row, int column, const char* name, const QString& caption,
                           const std::function<void()>& command);
    void BuildFind(const Application& application);
    void BuildReplace(const Application& application);
    void Leave();

    QGridLayout* m_grid;
    QLineEdit* m_text = nullptr;
    QLineEdit* m_replacement = nullptr;
    QCheckBox* m_case = nullptr;
    QLabel* m_told = nullptr;
    QList<QWidget*> m_secondRow;
};

}  // namespace sheetwright

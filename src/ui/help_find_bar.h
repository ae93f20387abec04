#pragma once

// The bar below a page of the help in which a text of the page is looked for.

#include <QWidget>

class QLabel;
class QLineEdit;
class QTextEdit;
class QToolButton;

namespace sheetwright {

class Application;

class HelpFindBar : public QWidget {
  public:
    HelpFindBar(const Application& application, QTextEdit& page, QWidget* parent);

    // Shows the bar, with what is selected in the page as the text to look for. The search begins with what
    // is visible.
    void Start();
    void FindNext() { Find(true); }
    void FindPrevious() { Find(false); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] QToolButton* MakeButton(const QString& name, const QString& caption);
    void FindWhileTyping();
    void Find(bool isForward);

    QTextEdit& m_page;
    QLineEdit* m_text;
    QLabel* m_told;
    QString m_notFound;
};

}  // namespace sheetwright

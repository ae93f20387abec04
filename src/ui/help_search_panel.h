#pragma once

// The search of the help window: a box for words, and the pages that have them.

#include "core/help_search.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;

namespace sheetwright {

class Application;

class HelpSearchPanel : public QWidget {
  public:
    HelpSearchPanel(const Application& application, const QString& folder, QWidget* parent);

    // The pages are read when the first word is typed.
    std::function<void(const HelpResult&, const QString& words)> Open;

    // Goes to the box; with words it searches for them.
    void Start(const QString& words);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Search();
    void Show(const HelpResult& result);
    void OpenRow(int row);

    const Application& m_application;
    QString m_folder;
    QLineEdit* m_words;
    QLabel* m_told;
    QListWidget* m_list;
    std::optional<HelpSearch> m_search;
    std::vector<HelpResult> m_results;
};

}  // namespace sheetwright

#pragma once

// What the find bar does to the table: goes to cells while a text is typed and behind it, replaces, and
// counts while nothing else is to do.

#include "ui/list_table_find.h"

#include <QObject>
#include <QPersistentModelIndex>

#include <functional>

class QTimer;
class QUndoStack;

namespace sheetwright {

class Application;
class ListTableFindBar;
class ListTableModel;
class ListTableView;

class ListTableSearch : public QObject {
  public:
    using Run = std::function<void(const QString& name, const std::function<void()>& command)>;

    // `run` runs what the buttons of the bar ask for.
    ListTableSearch(const Application& application, ListTableModel& model, ListTableView& view,
                    QUndoStack& stack, ListTableFindBar& bar, const Run& run);

    // Opens the bar with the text of the current cell.
    void Start(bool isReplacing);
    void Find(bool isForward);

  private:
    void ConnectBar(const Run& run);
    void FindTyped();
    void Replace();
    void ReplaceAll();
    void BeginCount();
    void CountOn();
    void EndCount();

    const Application& m_application;
    ListTableModel& m_model;
    ListTableView& m_view;
    QUndoStack& m_stack;
    ListTableFindBar& m_bar;
    QTimer* m_idle;
    QPersistentModelIndex m_start;  // of the text being typed
    QPersistentModelIndex m_typed;  // where it was found last
    ListQuery m_query;
    int m_countedRows = 0;
    qint64 m_count = 0;
};

}  // namespace sheetwright

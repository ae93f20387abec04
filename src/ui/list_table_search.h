#pragma once

// What the find bar does to the table: goes to cells, replaces, and counts while nothing else is to do.

#include "ui/list_table_find.h"

#include <QObject>

class QTimer;
class QUndoStack;

namespace sheetwright {

class Application;
class ListTableFindBar;
class ListTableModel;
class ListTableView;

class ListTableSearch : public QObject {
  public:
    ListTableSearch(const Application& application, ListTableModel& model, ListTableView& view,
                    QUndoStack& stack, ListTableFindBar& bar);

    // Opens the bar with the text of the current cell.
    void Start(bool isReplacing);
    void Find(bool isForward);

  private:
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
    ListQuery m_query;
    int m_countedRows = 0;
    qint64 m_count = 0;
};

}  // namespace sheetwright

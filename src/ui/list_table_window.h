#pragma once

// The list editor's window: the table of one list, with menus, tool bar, find bar and status bar.

#include "ui/list_table_actions.h"
#include "ui/list_table_editing.h"
#include "ui/list_table_files.h"
#include "ui/list_table_model.h"

#include <QMainWindow>
#include <QMap>
#include <QUndoStack>

#include <functional>
#include <memory>

class QAction;
class QLabel;
class QToolBar;

namespace sheetwright {

class HelpWindow;
class ListTableFindBar;
class ListTableSearch;
class ListTableView;

class ListTableWindow : public QMainWindow {
  public:
    // `application` lives longer. Shows a new list.
    explicit ListTableWindow(Application& application);
    ~ListTableWindow() override;

    // Opens a list instead of the one that is shown; what fails is told.
    void OpenFile(const QString& path);

    [[nodiscard]] ListTableView& View() { return *m_view; }
    [[nodiscard]] ListTableModel& Model() { return m_model; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    using Commands = QMap<ListTableCommand, std::function<void()>>;

    void BuildTable();
    void BuildMenus();
    void BuildContextMenus();
    QAction* AddAction(const ListTableAction& row);
    [[nodiscard]] QAction* ActionOf(ListTableCommand command) const { return m_actions.value(command); }
    void BuildStatusBar();
    [[nodiscard]] Commands FileCommands();
    [[nodiscard]] Commands EditCommands();
    [[nodiscard]] Commands TableCommands();
    void DrawIcons();

    // One command at a time, with what is typed into a cell taken over before.
    void Run(const QString& name, const std::function<void()>& command);
    void ShowFile();
    void Refresh();
    void ShowPosition();
    void StepThrough(bool isRedo);
    void PasteAndTell();
    void ShowHelp();
    void RestorePlace();
    void StorePlace();

    Application& m_application;
    QUndoStack m_stack;
    ListTableModel m_model;
    ListTableView* m_view;
    ListTableFindBar* m_findBar;
    ListTableSearch* m_search;
    ListTableFiles m_files;
    ListTableEditing m_editing;
    std::vector<ListTableMenu> m_menus;
    Commands m_commands;
    QMap<ListTableCommand, QAction*> m_actions;
    QToolBar* m_toolBar = nullptr;
    QLabel* m_position = nullptr;
    QLabel* m_size = nullptr;
    QLabel* m_encoding = nullptr;
    std::unique_ptr<HelpWindow> m_help;
    bool m_isRunning = false;
};

}  // namespace sheetwright

#pragma once

// The commands of the list editor as a table: their words, icons and keys, and when they can be chosen.

#include <QKeySequence>
#include <QList>
#include <QString>

#include <vector>

class QKeyEvent;

namespace sheetwright {

class Application;

enum class ListTableCommand {
    New,
    Open,
    Save,
    SaveAs,
    Exit,
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    Clear,
    SelectAll,
    Find,
    Replace,
    FindNext,
    FindPrevious,
    AddRow,
    DuplicateRows,
    DeleteRows,
    MoveUp,
    MoveDown,
    AddColumn,
    ChangeColumn,
    DeleteColumn,
    SortAscending,
    SortDescending,
    Help,
    About,
};

// When a command can be chosen.
enum class ListTableRule {
    Always,
    Undo,
    Redo,
    Cell,     // with a current cell
    Columns,  // with any column
};

struct ListTableAction {
    ListTableCommand command = ListTableCommand::New;
    QString name;
    QString caption;  // translated
    QString icon;     // "" for none
    QList<QKeySequence> keys;
    ListTableRule rule = ListTableRule::Always;
    bool endsGroup = false;  // a divider stands behind it
    bool isOnToolBar = false;
};

struct ListTableMenu {
    QString name;
    QString caption;  // translated
    std::vector<ListTableAction> actions;
};

[[nodiscard]] std::vector<ListTableMenu> ListTableMenus(const Application& application);

// Keys of commands for rows that mean something else where a text is being typed.
[[nodiscard]] bool IsTextKey(const QKeyEvent& key);

}  // namespace sheetwright

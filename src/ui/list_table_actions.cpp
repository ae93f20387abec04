#include "ui/list_table_actions.h"

#include "core/application.h"

#include <QKeyEvent>

namespace sheetwright {

namespace {

using Actions = std::vector<ListTableAction>;
using Command = ListTableCommand;
using Rule = ListTableRule;

Actions FileActions(const Application& application) {
    return {
        {.command = Command::New,
         .name = QStringLiteral("mnuFileNew"),
         .caption = application.Translate(QStringLiteral("&New")),
         .icon = QStringLiteral("new"),
         .keys = {QKeySequence(QKeySequence::New)},
         .isOnToolBar = true},
        {.command = Command::Open,
         .name = QStringLiteral("mnuFileOpen"),
         .caption = application.Translate(QStringLiteral("&Open...")),
         .icon = QStringLiteral("open"),
         .keys = {QKeySequence(QKeySequence::Open)},
         .endsGroup = true,
         .isOnToolBar = true},
        {.command = Command::Save,
         .name = QStringLiteral("mnuFileSave"),
         .caption = application.Translate(QStringLiteral("&Save")),
         .icon = QStringLiteral("save"),
         .keys = {QKeySequence(QKeySequence::Save)},
         .isOnToolBar = true},
        {.command = Command::SaveAs,
         .name = QStringLiteral("mnuFileSaveAs"),
         .caption = application.Translate(QStringLiteral("Save &As...")),
         .icon = {},
         .keys = {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
         .endsGroup = true},
        {.command = Command::Exit,
         .name = QStringLiteral("mnuFileExit"),
         .caption = application.Translate(QStringLiteral("E&xit")),
         .icon = {},
         .keys = {QKeySequence(Qt::CTRL | Qt::Key_Q)}},
    };
}

Actions UndoActions(const Application& application) {
    return {
        {.command = Command::Undo,
         .name = QStringLiteral("mnuEditUndo"),
         .caption = application.Translate(QStringLiteral("&Undo")),
         .icon = QStringLiteral("undo"),
         .keys = {QKeySequence(QKeySequence::Undo)},
         .rule = Rule::Undo,
         .isOnToolBar = true},
        {.command = Command::Redo,
         .name = QStringLiteral("mnuEditRedo"),
         .caption = application.Translate(QStringLiteral("&Redo")),
         .icon = QStringLiteral("redo"),
         .keys = {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)},
         .rule = Rule::Redo,
         .endsGroup = true,
         .isOnToolBar = true},
    };
}

Actions CellActions(const Application& application) {
    return {
        {.command = Command::Cut,
         .name = QStringLiteral("mnuEditCut"),
         .caption = application.Translate(QStringLiteral("Cu&t")),
         .icon = {},
         .keys = {QKeySequence(QKeySequence::Cut)},
         .rule = Rule::Cell},
        {.command = Command::Copy,
         .name = QStringLiteral("mnuEditCopy"),
         .caption = application.Translate(QStringLiteral("&Copy")),
         .icon = {},
         .keys = {QKeySequence(QKeySequence::Copy)},
         .rule = Rule::Cell},
        {.command = Command::Paste,
         .name = QStringLiteral("mnuEditPaste"),
         .caption = application.Translate(QStringLiteral("&Paste")),
         .icon = {},
         .keys = {QKeySequence(QKeySequence::Paste)},
         .rule = Rule::Columns},
        {.command = Command::Clear,
         .name = QStringLiteral("mnuEditClear"),
         .caption = application.Translate(QStringLiteral("Clea&r")),
         .icon = {},
         .keys = {QKeySequence(Qt::Key_Delete)},
         .rule = Rule::Cell},
        {.command = Command::SelectAll,
         .name = QStringLiteral("mnuEditSelectAll"),
         .caption = application.Translate(QStringLiteral("Select &All")),
         .icon = {},
         .keys = {QKeySequence(QKeySequence::SelectAll)},
         .rule = Rule::Cell,
         .endsGroup = true},
    };
}

Actions FindActions(const Application& application) {
    return {
        {.command = Command::Find,
         .name = QStringLiteral("mnuEditFind"),
         .caption = application.Translate(QStringLiteral("&Find...")),
         .icon = QStringLiteral("find"),
         .keys = {QKeySequence(Qt::CTRL | Qt::Key_F)},
         .rule = Rule::Columns,
         .isOnToolBar = true},
        {.command = Command::Replace,
         .name = QStringLiteral("mnuEditReplace"),
         .caption = application.Translate(QStringLiteral("&Replace...")),
         .icon = {},
         .keys = {QKeySequence(Qt::CTRL | Qt::Key_H)},
         .rule = Rule::Columns},
        {.command = Command::FindNext,
         .name = QStringLiteral("mnuEditFindNext"),
         .caption = application.Translate(QStringLiteral("Find &Next")),
         .icon = {},
         .keys = {QKeySequence(Qt::Key_F3)},
         .rule = Rule::Columns},
        {.command = Command::FindPrevious,
         .name = QStringLiteral("mnuEditFindPrevious"),
         .caption = application.Translate(QStringLiteral("Find Pre&vious")),
         .icon = {},
         .keys = {QKeySequence(Qt::SHIFT | Qt::Key_F3)},
         .rule = Rule::Columns},
    };
}

Actions RowActions(const Application& application) {
    return {
        {.command = Command::AddRow,
         .name = QStringLiteral("mnuRowAddRow"),
         .caption = application.Translate(QStringLiteral("&Add Row")),
         .icon = QStringLiteral("add_row"),
         .keys = {QKeySequence(Qt::Key_Insert)},
         .rule = Rule::Columns,
         .isOnToolBar = true},
        {.command = Command::DuplicateRows,
         .name = QStringLiteral("mnuRowDuplicateRows"),
         .caption = application.Translate(QStringLiteral("D&uplicate Rows")),
         .icon = {},
         .keys = {QKeySequence(Qt::CTRL | Qt::Key_D)},
         .rule = Rule::Cell},
        {.command = Command::DeleteRows,
         .name = QStringLiteral("mnuRowDeleteRows"),
         .caption = application.Translate(QStringLiteral("&Delete Rows")),
         .icon = QStringLiteral("delete_row"),
         .keys = {QKeySequence(Qt::CTRL | Qt::Key_Delete)},
         .rule = Rule::Cell,
         .endsGroup = true,
         .isOnToolBar = true},
        {.command = Command::MoveUp,
         .name = QStringLiteral("mnuRowMoveUp"),
         .caption = application.Translate(QStringLiteral("Move &Up")),
         .icon = QStringLiteral("row_up"),
         .keys = {QKeySequence(Qt::ALT | Qt::Key_Up)},
         .rule = Rule::Cell,
         .isOnToolBar = true},
        {.command = Command::MoveDown,
         .name = QStringLiteral("mnuRowMoveDown"),
         .caption = application.Translate(QStringLiteral("Move D&own")),
         .icon = QStringLiteral("row_down"),
         .keys = {QKeySequence(Qt::ALT | Qt::Key_Down)},
         .rule = Rule::Cell,
         .isOnToolBar = true},
    };
}

Actions ColumnActions(const Application& application) {
    return {
        {.command = Command::AddColumn,
         .name = QStringLiteral("mnuColumnAddColumn"),
         .caption = application.Translate(QStringLiteral("&Add Column...")),
         .icon = QStringLiteral("add_column"),
         .keys = {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Insert)},
         .isOnToolBar = true},
        {.command = Command::ChangeColumn,
         .name = QStringLiteral("mnuColumnChangeColumn"),
         .caption = application.Translate(QStringLiteral("&Name and Type...")),
         .icon = {},
         .keys = {QKeySequence(Qt::CTRL | Qt::Key_F2)},
         .rule = Rule::Columns},
        {.command = Command::DeleteColumn,
         .name = QStringLiteral("mnuColumnDeleteColumn"),
         .caption = application.Translate(QStringLiteral("&Delete Column")),
         .icon = {},
         .keys = {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete)},
         .rule = Rule::Columns,
         .endsGroup = true},
    };
}

Actions SortActions(const Application& application) {
    return {
        {.command = Command::SortAscending,
         .name = QStringLiteral("mnuColumnSortAscending"),
         .caption = application.Translate(QStringLiteral("&Sort Ascending")),
         .icon = QStringLiteral("sort_ascending"),
         .keys = {QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_Up)},
         .rule = Rule::Cell,
         .isOnToolBar = true},
        {.command = Command::SortDescending,
         .name = QStringLiteral("mnuColumnSortDescending"),
         .caption = application.Translate(QStringLiteral("Sort D&escending")),
         .icon = QStringLiteral("sort_descending"),
         .keys = {QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_Down)},
         .rule = Rule::Cell,
         .isOnToolBar = true},
    };
}

Actions HelpActions(const Application& application) {
    return {
        {.command = Command::Help,
         .name = QStringLiteral("mnuHelpHelp"),
         .caption = application.Translate(QStringLiteral("&Contents")),
         .icon = {},
         .keys = {QKeySequence(Qt::Key_F1)}},
        {.command = Command::About,
         .name = QStringLiteral("mnuHelpAbout"),
         .caption = application.Translate(QStringLiteral("&About")),
         .icon = {},
         .keys = {}},
    };
}

Actions Joined(Actions actions, const std::vector<Actions>& others) {
    for (const Actions& more : others)
        actions.insert(actions.end(), more.begin(), more.end());
    return actions;
}

}  // namespace

std::vector<ListTableMenu> ListTableMenus(const Application& application) {
    return {
        {QStringLiteral("mnuFile"), application.Translate(QStringLiteral("&File")), FileActions(application)},
        {QStringLiteral("mnuEdit"), application.Translate(QStringLiteral("&Edit")),
         Joined(UndoActions(application), {CellActions(application), FindActions(application)})},
        {QStringLiteral("mnuRow"), application.Translate(QStringLiteral("&Row")), RowActions(application)},
        {QStringLiteral("mnuColumn"), application.Translate(QStringLiteral("&Column")),
         Joined(ColumnActions(application), {SortActions(application)})},
        {QStringLiteral("mnuHelp"), application.Translate(QStringLiteral("&Help")), HelpActions(application)},
    };
}

bool IsTextKey(const QKeyEvent& key) {
    const QKeyCombination keys = key.keyCombination();
    return keys == QKeyCombination(Qt::Key_Insert) || keys == (Qt::CTRL | Qt::Key_Delete);
}

}  // namespace sheetwright

#pragma once

// The menus of the frame as a table: what each entry is called, what it does, and when it can be chosen.

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>
#include <vector>

namespace sheetwright {

class Application;
class FrameCommands;

// When a command can be chosen.
enum class CommandRule {
    Always,
    Never,  // what it would do can't be done yet
    Form,   // with a form in front
    Save,
    SaveAs,
    Print,
    Edit,   // with a form whose values may change
    Pages,  // with a form whose pages may become others
    Undo,
};

using FrameCommand = std::function<void(FrameCommands&)>;

// An entry of a menu; without a caption it is a divider.
struct CommandRow {
    QString name;
    QString caption = {};  // translated
    CommandRule rule = CommandRule::Always;
    FrameCommand command = {};
    QList<QKeySequence> shortcuts = {};
    bool isCheckable = false;
    bool isVisible = true;
    bool isMenu = false;  // its own entries are made when they are known
};

struct MenuRow {
    QString name;
    QString caption;  // translated; a menu without one pops up only
    std::vector<CommandRow> entries;
};

// All menus, in their order.
[[nodiscard]] std::vector<MenuRow> MenuTree(const Application& application);

// A button of the tool bar. Its words are those of the menu entry that does the same.
struct ButtonRow {
    QString key;
    QString icon;
    QString entry;
    FrameCommand command;
    bool beginsGroup = false;
};

[[nodiscard]] std::vector<ButtonRow> ToolBarButtons();

}  // namespace sheetwright

#pragma once

// The menus of the frame, made from the command table.

#include "ui/command_table.h"

#include <QHash>
#include <QObject>

class QAction;
class QActionGroup;
class QMenu;
class QMenuBar;

namespace sheetwright {

class FormArea;
class RecentFiles;
struct CommandStates;

// What decides which commands can be chosen.
struct FrameState {
    const CommandStates& commands;
    bool mayChange = false;  // the form in front, or none is there
    bool canUndo = false;
};

[[nodiscard]] bool IsAllowed(CommandRule rule, const FrameState& state);

class FrameMenus : public QObject {
  public:
    // `run` is called with an entry's name and command when it is chosen.
    using Run = std::function<void(const QString& name, const FrameCommand& command)>;
    FrameMenus(const Application& application, QMenuBar& bar, Run run);

    [[nodiscard]] QAction& Entry(const QString& name) const { return *m_entries.value(name); }
    [[nodiscard]] QMenu& Menu(const QString& name) const { return *m_menus.value(name); }
    [[nodiscard]] bool IsTicked(const QString& name) const;
    void SetTicked(const QString& name, bool isTicked);

    void Refresh(const FrameState& state);
    void ShowRecentFiles(const RecentFiles& files);
    // The entries under `mnuEditImport`, `mnuEditDrivers0` and so on: one for each driver. Without any it
    // hides.
    void ShowDrivers(const QStringList& names);
    // Puts the open forms behind the entries of the Window menu each time that it shows.
    void ListForms(FormArea& area);
    // Of menus and entries.
    void Hide(QStringView name);

  private:
    void AddMenu(const MenuRow& row, QMenuBar& bar);
    void AddEntry(const CommandRow& row, QMenu& menu);
    [[nodiscard]] QAction* MakeEntry(const CommandRow& row, QMenu& menu);
    void ListFormsNow(FormArea& area);

    Run m_run;
    QHash<QString, QAction*> m_entries;
    QHash<QString, QMenu*> m_menus;
    std::vector<std::pair<QAction*, CommandRule>> m_rules;
    QActionGroup* m_forms;  // one is in front
};

}  // namespace sheetwright

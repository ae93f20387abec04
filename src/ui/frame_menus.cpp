#include "ui/frame_menus.h"

#include "document/closing.h"
#include "document/document.h"
#include "document/recent_files.h"
#include "ui/form_area.h"
#include "ui/form_window.h"
#include "ui/frame_commands.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

#include <utility>

namespace sheetwright {

namespace {

// In a caption an "&" would underline what follows.
QString AsCaption(QString name) {
    return name.replace(u'&', QStringLiteral("&&"));
}

}  // namespace

bool IsAllowed(CommandRule rule, const FrameState& state) {
    const CommandStates& commands = state.commands;
    switch (rule) {
        case CommandRule::Always:
            return true;
        case CommandRule::Never:
            return false;
        case CommandRule::Form:
            return commands.fileClose;
        case CommandRule::Save:
            return commands.fileSave;
        case CommandRule::SaveAs:
            return commands.fileSaveAs;
        case CommandRule::Print:
            return commands.filePrint;
        case CommandRule::Edit:
            return commands.page;
        case CommandRule::Pages:
            return commands.page && state.mayChange;
        case CommandRule::Undo:
            return commands.page && state.mayChange && state.canUndo;
    }
    return false;
}

FrameMenus::FrameMenus(const Application& application, QMenuBar& bar, Run run)
    : QObject(&bar), m_run(std::move(run)), m_forms(new QActionGroup(this)) {
    for (const MenuRow& row : MenuTree(application))
        AddMenu(row, bar);
}

void FrameMenus::AddMenu(const MenuRow& row, QMenuBar& bar) {
    QMenu* const menu = row.caption.isEmpty() ? new QMenu(&bar) : bar.addMenu(row.caption);
    menu->setObjectName(row.name);
    menu->setToolTipsVisible(false);
    m_menus.insert(row.name, menu);
    for (const CommandRow& entry : row.entries)
        AddEntry(entry, *menu);
}

QAction* FrameMenus::MakeEntry(const CommandRow& row, QMenu& menu) {
    if (row.caption.isEmpty()) return menu.addSeparator();
    if (!row.isMenu) return menu.addAction(row.caption);
    QMenu* const more = menu.addMenu(row.caption);
    more->setObjectName(row.name);
    m_menus.insert(row.name, more);
    return more->menuAction();
}

void FrameMenus::AddEntry(const CommandRow& row, QMenu& menu) {
    QAction* const action = MakeEntry(row, menu);
    action->setObjectName(row.name);
    action->setVisible(row.isVisible);
    m_entries.insert(row.name, action);
    if (row.caption.isEmpty()) return;
    action->setShortcuts(row.shortcuts);
    action->setCheckable(row.isCheckable);
    m_rules.emplace_back(action, row.rule);
    if (row.command)
        connect(action, &QAction::triggered, this, [this, row] { m_run(row.name, row.command); });
}

bool FrameMenus::IsTicked(const QString& name) const {
    return Entry(name).isChecked();
}

void FrameMenus::SetTicked(const QString& name, bool isTicked) {
    Entry(name).setChecked(isTicked);
}

void FrameMenus::Refresh(const FrameState& state) {
    for (const auto& [action, rule] : m_rules)
        action->setEnabled(IsAllowed(rule, state));
    Menu(QStringLiteral("mnuPage")).menuAction()->setEnabled(state.commands.page);
    // A form without a name yet is saved by the same key as all others.
    const QKeySequence saveAs(Qt::CTRL | Qt::SHIFT | Qt::Key_S);
    const bool savesAsOnly = state.commands.fileSaveAs && !state.commands.fileSave;
    Entry(QStringLiteral("mnuFileSaveAs"))
        .setShortcuts(savesAsOnly ? QList<QKeySequence>{QKeySequence::Save, saveAs} : QList{saveAs});
}

void FrameMenus::ShowRecentFiles(const RecentFiles& files) {
    for (std::size_t index = 0; index < RecentFiles::kCount; ++index) {
        const RecentFiles::Entry& file = files.Entries().at(index);
        QAction& entry = Entry(QStringLiteral("mnuFileRecent%1").arg(index));
        if (file.isVisible) entry.setText(MenuText(file.caption));
        entry.setVisible(file.isVisible);
    }
}

void FrameMenus::ShowDrivers(const QStringList& names) {
    QMenu& menu = Menu(QStringLiteral("mnuEditImport"));
    menu.clear();
    const QString entry = QStringLiteral("mnuEditDrivers");
    for (const QString& name : names) {
        QAction* const action = menu.addAction(AsCaption(name));
        action->setObjectName(entry + QString::number(menu.actions().size() - 1));
        connect(action, &QAction::triggered, this, [this, entry, name] {
            m_run(entry, [name](FrameCommands& commands) { commands.mnuEditDrivers_Click(name); });
        });
    }
    menu.menuAction()->setVisible(!names.isEmpty());
}

void FrameMenus::ListForms(FormArea& area) {
    QMenu& menu = Menu(QStringLiteral("mnuWindow"));
    menu.addSeparator();
    connect(&menu, &QMenu::aboutToShow, this, [this, &area] { ListFormsNow(area); });
}

void FrameMenus::ListFormsNow(FormArea& area) {
    qDeleteAll(m_forms->actions());
    const FormWindow* const front = area.Active();
    for (FormWindow* const form : area.Forms()) {
        QAction* const action =
            Menu(QStringLiteral("mnuWindow")).addAction(AsCaption(form->Document().Caption));
        action->setCheckable(true);
        action->setChecked(form == front);
        connect(action, &QAction::triggered, form, [form, &area] { area.BringToFront(*form); });
        m_forms->addAction(action);
    }
}

void FrameMenus::Hide(QStringView name) {
    const QString key = name.toString();
    if (QMenu* const menu = m_menus.value(key)) menu->menuAction()->setVisible(false);
    if (QAction* const entry = m_entries.value(key)) entry->setVisible(false);
}

}  // namespace sheetwright

#include "ui/frame_tool_bar.h"

#include "core/application.h"
#include "document/closing.h"
#include "ui/frame_drivers.h"
#include "ui/frame_menus.h"
#include "ui/line_icons.h"
#include "ui/page_buttons.h"

#include <QAction>
#include <QEvent>

#include <utility>

namespace sheetwright {

namespace {

constexpr int kIconSide = 24;  // pixels

// The words of a menu entry without what only a menu shows.
QString PlainWords(QString words) {
    if (words.endsWith(QStringLiteral("..."))) words.chop(3);
    return words.remove(u'&');
}

}  // namespace

FrameToolBar::FrameToolBar(const Application& application, const FrameMenus& menus, Run run, QWidget* parent)
    : QToolBar(application.Translate(QStringLiteral("Tool Bar")), parent),
      m_run(std::move(run)),
      m_menus(menus),
      m_rows(ToolBarButtons()) {
    setObjectName(QStringLiteral("tbToolBar"));
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setIconSize(QSize(kIconSide, kIconSide));
    for (const ButtonRow& row : m_rows)
        AddButton(row, menus);
    m_drivers = new FrameDrivers(*this);
    m_pageDivider = addSeparator();
    m_pages = new PageButtons(application, this);
    m_pagePanel = addWidget(m_pages);
    DrawIcons();
}

void FrameToolBar::AddButton(const ButtonRow& row, const FrameMenus& menus) {
    if (row.beginsGroup) m_dividers.insert(row.key, addSeparator());
    QAction* const action = addAction(PlainWords(menus.Entry(row.entry).text()));
    action->setObjectName(row.key);
    connect(action, &QAction::triggered, this, [this, row] { m_run(row.key, row.command); });
    m_buttons.insert(row.key, action);
}

std::optional<DriverButton> FrameToolBar::DriverOfNumber(std::size_t number) const {
    return number > m_rows.size() ? m_drivers->At(number - m_rows.size() - 1) : std::nullopt;
}

void FrameToolBar::Hide(QStringView key) {
    Button(key.toString()).setVisible(false);
}

void FrameToolBar::Refresh(const CommandStates& states, bool reportsSave) {
    const bool maySave = reportsSave || states.fileSave || states.fileSaveAs;
    for (const ButtonRow& row : m_rows) {
        const QAction& entry = m_menus.Entry(row.entry);
        QAction& button = Button(row.key);
        button.setEnabled(row.key == u"Save" ? maySave : entry.isEnabled());
        const QString keys = entry.shortcut().toString(QKeySequence::NativeText);
        button.setToolTip(keys.isEmpty() ? button.text()
                                         : QStringLiteral("%1 (%2)").arg(button.text(), keys));
    }
    Button(QStringLiteral("AddPage")).setVisible(states.addPageVisible);
    HideEmptyGroups();
}

void FrameToolBar::HideEmptyGroups() {
    QAction* divider = nullptr;
    bool isEmpty = true;
    const auto end = [&] {
        if (divider != nullptr) divider->setVisible(!isEmpty);
    };
    for (const ButtonRow& row : m_rows) {
        if (row.beginsGroup) {
            end();
            divider = m_dividers.value(row.key);
            isEmpty = true;
        }
        isEmpty = isEmpty && !Button(row.key).isVisible();
    }
    end();
}

void FrameToolBar::ShowPages(int page, int pages) {
    m_pagePanel->setVisible(pages > 0);
    m_pageDivider->setVisible(pages > 0);
    m_pages->SetPages(page, pages);
}

void FrameToolBar::changeEvent(QEvent* event) {
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_pages != nullptr) DrawIcons();
}

void FrameToolBar::DrawIcons() {
    const QColor colour = palette().color(QPalette::ButtonText);
    for (const ButtonRow& row : m_rows)
        Button(row.key).setIcon(LineIcon(row.icon, colour));
    m_drivers->SetIconColour(colour);
    m_pages->SetIconColour(colour);
}

}  // namespace sheetwright

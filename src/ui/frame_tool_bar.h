#pragma once

// `tbToolBar`: a button for each of the commands that are wanted most, and the page panel.

#include "ui/command_table.h"

#include <QHash>
#include <QToolBar>

#include <optional>

namespace sheetwright {

class FrameDrivers;
class FrameMenus;
class PageButtons;
struct CommandStates;
struct DriverButton;

class FrameToolBar : public QToolBar {
  public:
    using Run = std::function<void(const QString& name, const FrameCommand& command)>;
    // The words of the buttons are those of the menus.
    FrameToolBar(const Application& application, const FrameMenus& menus, Run run, QWidget* parent);

    [[nodiscard]] PageButtons& Pages() { return *m_pages; }
    [[nodiscard]] QAction& Button(const QString& key) const { return *m_buttons.value(key); }
    [[nodiscard]] FrameDrivers& Drivers() { return *m_drivers; }
    // Buttons count from 1, those of the drivers behind the others.
    [[nodiscard]] std::size_t NumberOfDriver(std::size_t index) const { return m_rows.size() + index + 1; }
    // None for a number that is no driver's.
    [[nodiscard]] std::optional<DriverButton> DriverOfNumber(std::size_t number) const;
    void Hide(QStringView key);

    // `reportsSave`: the button Save is the host's.
    void Refresh(const CommandStates& states, bool reportsSave);
    void ShowPages(int page, int pages);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void AddButton(const ButtonRow& row, const FrameMenus& menus);
    void DrawIcons();
    // No divider stands beside another.
    void HideEmptyGroups();

    Run m_run;
    const FrameMenus& m_menus;
    std::vector<ButtonRow> m_rows;
    QHash<QString, QAction*> m_buttons;
    QHash<QString, QAction*> m_dividers;  // by the key of the button behind
    FrameDrivers* m_drivers = nullptr;
    PageButtons* m_pages = nullptr;
    QAction* m_pagePanel = nullptr;
    QAction* m_pageDivider = nullptr;
};

}  // namespace sheetwright

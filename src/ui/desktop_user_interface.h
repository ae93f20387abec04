#pragma once

// The interface of the desktop: message boxes, dialogs for files and printers, the pointer, the status panel
// of the frame.

#include "core/user_interface.h"
#include "ui/stop_key.h"

#include <QPointer>

class QWidget;

namespace sheetwright {

class Application;
class LazyPrinters;
class StatusPanel;

class DesktopUserInterface : public UserInterface {
  public:
    DesktopUserInterface() = default;
    ~DesktopUserInterface() override;

    // Buttons speak the language of `application`, which outlives this object's use; without one English.
    void UseLanguageOf(const Application& application) { m_application = &application; }
    // Where status words and progress show. They are kept while there is none.
    void UseStatusPanel(StatusPanel& panel);
    // What the printer dialog offers; without them it is as good as cancelled.
    void UsePrinters(LazyPrinters& printers) { m_printers = &printers; }

    MessageAnswer ShowMessage(const QString& text, const QString& title, MessageIcon icon,
                              MessageButtons buttons = MessageButtons::Ok) override;
    void ShowPrinter(PrinterDialog& dialog) override;
    void ShowOpen(FileDialog& dialog) override;
    void ShowSave(FileDialog& dialog) override;
    void SetPointer(Pointer pointer) override;
    void SetStatus(const QString& text) override;
    [[nodiscard]] QString Status() const override { return m_status; }
    void ShowProgress() override;
    void SetProgress(int percent) override;
    void HideProgress() override;
    // By Escape, while the progress bar shows.
    [[nodiscard]] bool IsStopWanted() override;
    // Paints and lets timers run. What a person types or clicks meanwhile waits until the command that pumps
    // has ended: no command starts within another.
    void PumpMessages() override;
    void Beep() override;
    void TellHost(const QString&) override {}  // nobody drives the desktop

  private:
    [[nodiscard]] QString Words(MessageAnswer answer) const;
    [[noreturn]] void TellOfNoPrinter();

    const Application* m_application = nullptr;
    LazyPrinters* m_printers = nullptr;
    QPointer<StatusPanel> m_panel;
    QString m_status;
    bool m_isBusy = false;  // the hourglass shows
    bool m_isPumping = false;
    bool m_showsProgress = false;
    bool m_tellsOfStop = false;
    StopKey m_stopKey;
};

}  // namespace sheetwright

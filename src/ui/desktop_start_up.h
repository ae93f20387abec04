#pragma once

// What the start of the program asks of the desktop.

#include "core/instance_claim.h"
#include "core/start_up.h"
#include "ui/mdi_sheetwright.h"

#include <memory>

namespace sheetwright {

class DesktopUserInterface;
class DownloadWindow;
class SplashWindow;

class DesktopStartUp : public StartUpActions {
  public:
    // The program is claimed under the title that it was built with.
    DesktopStartUp(Application& application, DesktopUserInterface& ui);
    ~DesktopStartUp() override;

    // None before `LoadMainWindow`.
    [[nodiscard]] mdiSheetwright* Frame() { return m_frame.get(); }

    bool ClaimInstance() override { return m_claim.Take(m_program); }
    void SetSplashProductLine(const QString& text) override;
    void ShowSplash() override;
    void CloseSplash() override;
    void LoadMainWindow() override;
    void ShowMainWindow() override { m_frame->show(); }
    void SetMainWindowCaption(const QString& caption) override { m_frame->setWindowTitle(caption); }
    void ShowTipOfTheDay() override {}
    void ShowWelcome() override {}
    QString DialogFileName() override { return m_frame->DialogFileName; }
    void SetDialogFileName(const QString& path) override;
    void OpenTemplate(const QString& path) override;
    void OpenForm() override { m_frame->OpenFromDialogSlot(); }
    void SetPollInterval(int) override {}  // there is no channel to poll

  private:
    // Made when it is asked for first.
    [[nodiscard]] SplashWindow& Splash();

    Application& m_application;
    DesktopUserInterface& m_ui;
    QString m_program;
    InstanceClaim m_claim;
    std::unique_ptr<SplashWindow> m_splash;
    std::unique_ptr<DownloadWindow> m_download;
    std::unique_ptr<mdiSheetwright> m_frame;
};

}  // namespace sheetwright

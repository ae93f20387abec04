#pragma once

// Shows a download while it runs: what the driver's program prints, and a button that stops it. Until then
// nobody can do anything else with the program.

#include "import/download_progress.h"
#include "ui/download_window_text.h"

#include <QDialog>
#include <QTimer>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace sheetwright {

class Application;

class DownloadWindow : public QDialog, public DownloadProgress {
  public:
    // `application` lives longer.
    explicit DownloadWindow(const Application& application);

    void Begin(const QString& driver, std::function<void()> cancel) override;
    void AddOutput(const QString& text) override;
    void End() override;

    // Closing the window is the button Cancel.
    void reject() override;

  private:
    void Build();
    void BuildOutput();
    void PutOverActiveWindow();
    void ShowOutput();

    const Application& m_application;
    QLabel* m_lblState;
    QPlainTextEdit* m_txtOutput;
    QPushButton* m_cmdCancel;
    QTimer m_pause;  // between two changes of what shows
    DownloadWindowText m_text;
    std::function<void()> m_cancel;
};

}  // namespace sheetwright

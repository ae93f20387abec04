#pragma once

// The port through which a download shows itself while it runs: a window of the desktop, or nothing.

#include <QString>

#include <functional>

namespace sheetwright {

class DownloadProgress {
  public:
    DownloadProgress() = default;
    DownloadProgress(const DownloadProgress&) = delete;
    DownloadProgress& operator=(const DownloadProgress&) = delete;
    virtual ~DownloadProgress() = default;

    // Shows that the download of a driver has begun. `cancel` is to be called, once at the most, when the
    // person doesn't want it any more. Windows of the program take no input until `End`.
    virtual void Begin(const QString& driver, std::function<void()> cancel) = 0;
    // Further output of the driver's program: any part of a text of lines.
    virtual void AddOutput(const QString& text) = 0;
    virtual void End() = 0;
};

// Nobody looks.
class NoDownloadProgress : public DownloadProgress {
  public:
    void Begin(const QString&, std::function<void()>) override {}
    void AddOutput(const QString&) override {}
    void End() override {}
};

}  // namespace sheetwright

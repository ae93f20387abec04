#pragma once

// The download manager as the program sees it: a list of drivers, one for each instrument, one of which can
// be told to fetch what the instrument holds.

#include <QIcon>
#include <QString>

#include <cstdint>

namespace sheetwright {

class FETCHDOCK {
  public:
    FETCHDOCK() = default;
    FETCHDOCK(const FETCHDOCK&) = delete;
    FETCHDOCK& operator=(const FETCHDOCK&) = delete;
    virtual ~FETCHDOCK() = default;

    // The folder below which driver paths lie, with trailing separator; "" when there is no download manager.
    [[nodiscard]] virtual QString Directory() const = 0;

    // Drivers count from 0. `Rescan` reads their list again, which leaves none selected.
    virtual void Rescan() = 0;
    [[nodiscard]] virtual std::int16_t Count() const = 0;
    // Raises 9 for a driver that isn't there; so does `SetIndex`.
    [[nodiscard]] virtual QString DriverName(std::int16_t index) const = 0;

    // Of the driver that is selected; without one it isn't available and has no icon.
    virtual void SetIndex(std::int16_t index) = 0;
    [[nodiscard]] virtual bool Available() const = 0;
    [[nodiscard]] virtual QIcon Icon() const = 0;

    // Where the download is to be put, a folder.
    virtual void SetDataFolder(const QString& path) = 0;
    // Whether a person sees how the next download goes on, and can cancel it.
    virtual void ShowProgress(bool isShown) = 0;
    // Runs the selected driver; returns when it has ended or was cancelled. What went wrong is told to the
    // person here.
    virtual void Download() = 0;
    // What the last download delivered; "" when that was nothing.
    [[nodiscard]] virtual QString DownloadedFile() const = 0;
};

// No download manager.
class NoFetchDock : public FETCHDOCK {
  public:
    [[nodiscard]] QString Directory() const override { return {}; }
    void Rescan() override {}
    [[nodiscard]] std::int16_t Count() const override { return 0; }
    [[nodiscard]] QString DriverName(std::int16_t) const override { return {}; }
    void SetIndex(std::int16_t) override {}
    [[nodiscard]] bool Available() const override { return false; }
    [[nodiscard]] QIcon Icon() const override { return {}; }
    void SetDataFolder(const QString&) override {}
    void ShowProgress(bool) override {}
    void Download() override {}
    [[nodiscard]] QString DownloadedFile() const override { return {}; }
};

}  // namespace sheetwright

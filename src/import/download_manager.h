#pragma once

// The program's own download manager. A driver is a folder below "DRIVERS" with a file DRIVER.INF, which
// names the program that fetches; see docs/drivers.md.

#include "import/driver_file.h"
#include "import/fetchdock.h"

#include <optional>
#include <vector>

namespace sheetwright {

class Application;
class DownloadProgress;

class DownloadManager : public FETCHDOCK {
  public:
    // `application` and `progress` live longer. Drivers are read when they are first asked for: only then the
    // settings are found by their translated name.
    DownloadManager(Application& application, DownloadProgress& progress);

    [[nodiscard]] QString Directory() const override;
    void Rescan() override;
    [[nodiscard]] std::int16_t Count() const override;
    [[nodiscard]] QString DriverName(std::int16_t index) const override;
    void SetIndex(std::int16_t index) override;
    [[nodiscard]] bool Available() const override;
    [[nodiscard]] QIcon Icon() const override;
    // A folder that is not in that of the driver gets no download: pages, which name it, come from strangers.
    // Without one it is "Data" in the driver's folder.
    void SetDataFolder(const QString& path) override { m_dataFolder = path; }
    void ShowProgress(bool isShown) override { m_showsProgress = isShown; }
    // While one runs, another does nothing.
    void Download() override;
    [[nodiscard]] QString DownloadedFile() const override { return m_downloadedFile; }

  private:
    [[nodiscard]] const std::vector<DriverFile>& Drivers() const;
    [[nodiscard]] const DriverFile& DriverAt(int index) const;
    [[nodiscard]] QString Fetched(const DriverFile& driver, bool isShown);

    Application& m_application;
    DownloadProgress& m_progress;
    mutable std::optional<std::vector<DriverFile>> m_drivers;
    mutable bool m_hasShippedDrivers = false;  // once is enough: one that a person deletes stays away
    int m_index = -1;
    QString m_dataFolder;
    bool m_showsProgress = false;
    bool m_isRunning = false;
    QString m_downloadedFile;
};

}  // namespace sheetwright

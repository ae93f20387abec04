#pragma once

// The program's own download manager. A driver is a folder below "DRIVERS" with a file DRIVER.INF, which
// names the program that fetches; see docs/drivers.md.

#include "import/driver_file.h"
#include "import/fetchdock.h"

#include <vector>

namespace sheetwright {

class Application;
class DownloadProgress;

class DownloadManager : public FETCHDOCK {
  public:
    // `application` and `progress` live longer.
    DownloadManager(Application& application, DownloadProgress& progress);

    [[nodiscard]] QString Directory() const override;
    void Rescan() override;
    [[nodiscard]] std::int16_t Count() const override;
    [[nodiscard]] QString DriverName(std::int16_t index) const override;
    void SetIndex(std::int16_t index) override;
    [[nodiscard]] bool Available() const override;
    [[nodiscard]] QIcon Icon() const override;
    void SetDataFolder(const QString& path) override { m_dataFolder = path; }
    void ShowProgress(bool isShown) override { m_showsProgress = isShown; }
    void Download() override;
    [[nodiscard]] QString DownloadedFile() const override { return m_downloadedFile; }

  private:
    Application& m_application;
    DownloadProgress& m_progress;
    std::vector<DriverFile> m_drivers;
    int m_index = -1;
    QString m_dataFolder;
    bool m_showsProgress = false;
    QString m_downloadedFile;
};

}  // namespace sheetwright

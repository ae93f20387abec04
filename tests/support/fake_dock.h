#pragma once

// A download manager that writes down what it is told, and delivers what the test wants.

#include "core/failure.h"
#include "import/fetchdock.h"
#include "support/short_text.h"

#include <QStringList>

#include <functional>
#include <vector>

namespace sheetwright {

class FakeDock : public FETCHDOCK {
  public:
    struct Driver {
        QString name;
        bool isAvailable = true;
        QIcon icon = {};
    };

    [[nodiscard]] QString Directory() const override { return directory; }
    void Rescan() override {
        ++rescans;
        calls << S("Rescan");
        m_index = -1;
    }
    [[nodiscard]] std::int16_t Count() const override { return static_cast<std::int16_t>(drivers.size()); }
    [[nodiscard]] QString DriverName(std::int16_t index) const override { return At(index).name; }
    void SetIndex(std::int16_t index) override {
        (void)At(index);
        m_index = index;
        calls << S("Index %1").arg(index);
    }
    [[nodiscard]] bool Available() const override { return m_index >= 0 && At(m_index).isAvailable; }
    [[nodiscard]] QIcon Icon() const override { return m_index < 0 ? QIcon() : At(m_index).icon; }
    void SetDataFolder(const QString& path) override { calls << S("DataFolder ") + path; }
    void ShowProgress(bool isShown) override { calls << S("ShowProgress %1").arg(isShown); }
    void Download() override {
        calls << S("Download");
        m_downloaded = onDownload ? onDownload() : QString();
    }
    [[nodiscard]] QString DownloadedFile() const override { return m_downloaded; }

    QString directory = S("C:\\Manager\\DRIVERS\\");
    std::vector<Driver> drivers;
    QStringList calls;
    int rescans = 0;
    std::function<QString()> onDownload;  // gives what is delivered; without it nothing is

  private:
    [[nodiscard]] const Driver& At(std::int16_t index) const {
        if (index < 0 || index >= Count()) throw Failure(failure::kSubscript);
        return drivers[static_cast<std::size_t>(index)];
    }

    std::int16_t m_index = -1;
    QString m_downloaded;
};

}  // namespace sheetwright

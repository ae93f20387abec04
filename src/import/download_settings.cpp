#include "import/download_settings.h"

#include "core/application.h"

namespace sheetwright {

QString DownloadSetting(const Application& application, const QString& key) {
    return application.settings.Read(application.Translate(QStringLiteral("Download Manager")),
                                     QStringLiteral("Settings"), key);
}

}  // namespace sheetwright

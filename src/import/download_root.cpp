#include "import/download_root.h"

#include "core/application.h"
#include "core/paths.h"
#include "import/download_settings.h"

namespace sheetwright {

QString DownloadRoot(const Application& application) {
    const QString directory = DownloadSetting(application, QStringLiteral("Directory"));
    QString root = directory.isEmpty() ? application.WritableFolder : directory;
    while (!root.isEmpty() && IsSeparator(root.back()))
        root.chop(1);
    return root;
}

}  // namespace sheetwright

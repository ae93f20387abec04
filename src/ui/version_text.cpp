#include "ui/version_text.h"

#include "core/application.h"

namespace sheetwright {

QString VersionText(const Application& application) {
    const Version version = ProgramVersion();
    return application.Translate(
        QStringLiteral("Version %1"),
        QStringLiteral("%1.%2.%3").arg(version.major).arg(version.minor).arg(version.revision));
}

}  // namespace sheetwright

#include "import/driver_programs.h"

#include "core/application.h"
#include "core/paths.h"
#include "import/download_settings.h"
#include "import/driver_file.h"
#include "import/driver_folder.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace sheetwright {

namespace {

// Beside the program's own executable.
constexpr std::array kShippedPrograms{QLatin1String("sheetwright-simulated-tester"),
                                      QLatin1String("sheetwright-line-reader")};
constexpr QLatin1String kProgramExtension(".exe");

// A program that is written with an extension may have none here.
QStringList SpellingsOf(QString written) {
    written.replace(u'\\', u'/');
    QStringList spellings{written};
    if (written.endsWith(kProgramExtension, Qt::CaseInsensitive))
        spellings << written.chopped(kProgramExtension.size());
    return spellings;
}

// Shipped programs are known by their bare name.
QStringList PlacesOf(const Application& application, const DriverFile& driver) {
    QStringList places;
    for (const QString& spelling : SpellingsOf(driver.program)) {
        places << (QDir::isAbsolutePath(spelling) ? spelling : driver.folder + spelling);
        const bool isShipped =
            std::find(kShippedPrograms.begin(), kShippedPrograms.end(), spelling) != kShippedPrograms.end();
        if (isShipped) places << application.InstallFolder + spelling;
    }
    return places;
}

QString Canonical(const QString& path) {
    return QFileInfo(OnDisk(path)).canonicalFilePath();
}

QStringList AllowedPrograms(const Application& application) {
    QStringList programs;
    for (const QLatin1String name : kShippedPrograms)
        programs << Canonical(application.InstallFolder + name);
    const QString setting = DownloadSetting(application, QStringLiteral("Programs"));
    for (const QString& path : setting.split(u';'))
        for (const QString& spelling : SpellingsOf(path.trimmed()))
            if (QDir::isAbsolutePath(spelling)) programs << Canonical(spelling);
    programs.removeAll(QString());
    return programs;
}

bool CanStart(const QString& program) {
    const QFileInfo file(program);
    return file.isFile() && file.isExecutable();
}

}  // namespace

QString ProgramOf(const Application& application, const DriverFile& driver) {
    if (driver.program.isEmpty()) return {};
    for (const QString& place : PlacesOf(application, driver)) {
        const QString program = Canonical(place);
        if (program.isEmpty() || !CanStart(program)) continue;
        const bool isAllowed =
            IsInFolder(program, driver.folder) || AllowedPrograms(application).contains(program);
        if (isAllowed) return program;
    }
    return {};
}

}  // namespace sheetwright

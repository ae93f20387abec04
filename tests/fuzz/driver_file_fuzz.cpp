// Any bytes as DRIVER.INF, and any text in its keys: no crash, no number out of range, no file outside the
// driver's folder.

#include "import/driver_file.h"
#include "import/driver_programs.h"
#include "support/fuzz_workplace.h"

#include <QDir>

#include <cstdint>

namespace {

using sheetwright::DriverFile;
using sheetwright::Require;

void RequireSense(const DriverFile& driver) {
    Require(driver.name == QStringLiteral("D") && !driver.caption.isEmpty());
    Require(driver.timeLimit >= 1 && driver.timeLimit <= 86400);
    Require(driver.version >= 0 && driver.minimumRecords >= 0);
    Require(driver.icon.isEmpty() || driver.icon.startsWith(driver.folder));
    for (const QString& column : driver.columns)
        Require(!column.isEmpty());
}

DriverFile Read(const sheetwright::FuzzWorkplace& workplace, const QByteArray& bytes) {
    workplace.WriteFile(QStringLiteral("D/DRIVER.INF"), bytes);
    DriverFile driver = sheetwright::ReadDriverFile(workplace.Folder() + QStringLiteral("D"));
    RequireSense(driver);
    return driver;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static sheetwright::FuzzWorkplace workplace;
    static const bool isMade = QDir().mkpath(workplace.Folder() + QStringLiteral("D"));
    Require(isMade);
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const DriverFile driver = Read(workplace, bytes);
    Require(sheetwright::ProgramOf(workplace.TheApplication(), driver).isEmpty());
    for (const char* key : {"[Driver]\nIcon=", "[Download]\nArguments=", "[Delivered]\nColumns="})
        Read(workplace, key + bytes);
    return 0;
}

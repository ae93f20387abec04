// Any bytes unpack to plain files under bare names, within the limits, or to nothing. What was unpacked as a
// form is packed again and then has the same members.

#include "core/application.h"
#include "core/failure.h"
#include "document/form_archive.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

using namespace sheetwright;

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

struct Place {
    Place() {
        // The log of what was refused is of no interest here; a folder of its name keeps it from being
        // written.
        QDir(folder.path()).mkdir(QStringLiteral("errors.csv"));
    }

    QTemporaryDir folder;
    SilentUserInterface ui;
    Application application{QStringLiteral("Fuzz"), folder.path(), Settings(folder.path()), ui};
};

QStringList Entries(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

void RequirePlainFiles(const QString& folder) {
    const QStringList entries = Entries(folder);
    Require(entries.size() <= archive_limits::kMembers);
    for (const QString& name : entries) {
        const QFileInfo info(folder + name);
        Require(info.isFile() && !info.isSymLink() && info.size() <= archive_limits::kMemberBytes);
    }
}

void RequireSameAfterPacking(Place& place, const QString& unpacked) {
    const QStringList names = Entries(unpacked);
    const QString packed = place.folder.filePath(QStringLiteral("again.aff"));
    const bool hasText = std::count_if(names.begin(), names.end(), IsTextMemberName) == 1;
    Require(ZipForm(place.application, packed, unpacked) == hasText);
    if (!hasText) return;
    QStringList members = ArchiveMembers(packed);
    members.sort();
    QStringList sorted = names;
    sorted.sort();
    Require(members == sorted);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Place place;
    const QString path = place.folder.filePath(QStringLiteral("form.aff"));
    QFile file(path);
    Require(file.open(QIODevice::WriteOnly));
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    file.close();
    const QString unpacked = place.folder.filePath(QStringLiteral("unpacked/"));
    QDir(unpacked).removeRecursively();
    Require(QDir().mkpath(unpacked));
    UnZipForm(place.application, path, unpacked);
    RequirePlainFiles(unpacked);
    if (!IsPlainTextForm(path)) RequireSameAfterPacking(place, unpacked);
    return 0;
}

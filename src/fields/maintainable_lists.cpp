// The installer of lists; src/fields/list_filling.cpp has the rest of the header.

#include "fields/maintainable_lists.h"

#include "core/application.h"
#include "core/atomic_file.h"
#include "core/contained_name.h"
#include "core/failure.h"
#include "core/folders.h"
#include "core/paths.h"
#include "core/text.h"
#include "document/document.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace sheetwright {

namespace {

constexpr qint64 kLongestIndex = 1024 * 1024;
constexpr int kMostLists = 1000;
constexpr qint64 kMostBytes = 1024LL * 1024 * 1024;
constexpr qint64 kCopyStep = 64LL * 1024;

QString TableOf(const QString& list) {
    return list + QStringLiteral(".csv");
}

QString TypesOf(const QString& list) {
    return list + QStringLiteral(".inf");
}

bool TakesItemsFromList(QStringView designLine) {
    return designLine.contains(u"List=@LISTS\\") || designLine.contains(u"List=@LISTS/");
}

bool TakesItemsFromLists(const PageLines& design) {
    for (int position = 1; position <= design.Count(); ++position)
        if (TakesItemsFromList(design.Line(position))) return true;
    return false;
}

bool TakesItemsFromLists(const MemoryBlock& memory) {
    for (int page = 0; page <= memory.DesignPageCount(); ++page)
        if (TakesItemsFromLists(memory.DesignPage(page))) return true;
    return false;
}

// What the index says of one list, as paths without an extension.
struct BroughtList {
    QString stored;
    QString installed;
};

class Installer {
  public:
    Installer(QString unpackedFolder, const QString& listFolder)
        : m_unpackedFolder(std::move(unpackedFolder)), m_lists(listFolder + QStringLiteral("LISTS\\")) {}

    void Install(QStringView index) {
        for (const QStringView line : SplitLines(index)) {
            const qsizetype comma = line.indexOf(u',');
            if (comma < 0) continue;
            if (++m_count > kMostLists) return;
            InstallOne(line.first(comma).toString(), line.sliced(comma + 1).toString());
        }
    }

  private:
    void InstallOne(const QString& storedName, const QString& path) {
        const bool isBareName = GetFolder(storedName).isEmpty();
        if (!isBareName || !IsContainedName(storedName) || !IsContainedName(path)) return;
        const BroughtList list{m_unpackedFolder + storedName, m_lists + path};
        Ignoring([&] { QDir().mkpath(OnDisk(GetFolder(list.installed))); });
        if (!FileExists(TableOf(list.stored)) || FileExists(TableOf(list.installed))) return;
        // The table comes last: a list whose table is there counts as installed.
        Ignoring([&] {
            if (FileExists(TypesOf(list.stored))) Copy(TypesOf(list.stored), TypesOf(list.installed));
        });
        Ignoring([&] { Copy(TableOf(list.stored), TableOf(list.installed)); });
    }

    void Copy(const QString& from, const QString& to) {
        QFile source(OnDisk(from));
        OpenForReading(source);
        m_bytes += source.size();
        if (m_bytes > kMostBytes) throw Failure(failure::kDiskFull);
        AtomicFile unfinished(to, kUnfinishedSuffix.toString());
        while (!source.atEnd()) {
            const QByteArray bytes = source.read(kCopyStep);
            if (bytes.isEmpty()) throw Failure(failure::kDeviceError);
            unfinished.Beside().Write(bytes);
        }
        unfinished.Beside().Flush();
        unfinished.Replace();
    }

    QString m_unpackedFolder;
    QString m_lists;
    int m_count = 0;
    qint64 m_bytes = 0;
};

}  // namespace

void SheetwrightLoadLists(const frmSheetwright& document) {
    if (document.MyTempDir.isEmpty()) return;
    const QString index = document.MyTempDir + QStringLiteral("ListIndex.txt");
    if (!FileExists(index) || !TakesItemsFromLists(document.memory)) return;
    if (QFileInfo(OnDisk(index)).size() > kLongestIndex) return;
    Ignoring([&] {
        Installer(document.MyTempDir, ListFolder(document.application))
            .Install(DecodeFileText(ReadWholeFile(index)));
    });
}

}  // namespace sheetwright

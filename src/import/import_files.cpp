#include "import/import_files.h"

#include "core/atomic_file.h"
#include "core/paths.h"
#include "core/text.h"
#include "document/document.h"
#include "formula/reference.h"

#include <QFileInfo>

namespace sheetwright {

namespace {

// Without its last component; "" when it has only one.
QString ParentOf(const QString& folder) {
    QString parent = GetFolder(folder);
    parent.chop(1);
    return parent;
}

// Where the first "DRIVERS" with a separator behind it begins; -1 for none.
qsizetype DriversAt(const QString& folder) {
    const QString drivers = QStringLiteral("DRIVERS");
    qsizetype at = folder.indexOf(drivers, 0, Qt::CaseInsensitive);
    while (at >= 0) {
        const qsizetype end = at + drivers.size();
        if (end < folder.size() && IsSeparator(folder[end])) return at;
        at = folder.indexOf(drivers, at + 1, Qt::CaseInsensitive);
    }
    return -1;
}

QString LinkedPagesFile(const frmSheetwright& document) {
    return document.MyTempDir + QStringLiteral("linkedpages.txt");
}

QString TitleOfDesign(const frmSheetwright& document) {
    const KeyedCollection<QString>& titles = document.memory.PageProps;
    const bool hasTitle = document.PageNum >= 1 && document.PageNum <= titles.Count();
    return hasTitle ? titles.At(int{document.PageNum}) : QString();
}

}  // namespace

QString GetRelativePath(const QString& path) {
    for (QString folder = ParentOf(path); !folder.isEmpty(); folder = ParentOf(folder)) {
        if (!FileExists(folder + QStringLiteral("/DRIVER.INF"))) continue;
        const qsizetype drivers = DriversAt(folder);
        return drivers < 0 ? folder : folder.sliced(drivers);
    }
    return path;
}

const QByteArray& ImportedFile::Bytes() {
    if (!m_bytes) m_bytes = ReadWholeFile(m_path);
    return *m_bytes;
}

QString KeepImportedFile(const frmSheetwright& document, const QByteArray& bytes) {
    if (document.MyTempDir.isEmpty() || !QFileInfo(OnDisk(document.MyTempDir)).isDir()) return {};
    int number = 1;
    const auto target = [&] { return document.MyTempDir + QStringLiteral("import%1.csv").arg(number); };
    while (QFileInfo::exists(OnDisk(target())))
        ++number;
    AtomicFile copy(target(), kUnfinishedSuffix.toString());  // not flushed: the folder goes with the form
    copy.Beside().Write(bytes);
    copy.Replace();
    return target();
}

bool HasLinkedPages(const frmSheetwright& document) {
    return !document.MyTempDir.isEmpty() && FileExists(LinkedPagesFile(document));
}

std::optional<Companion> CompanionOfPage(const frmSheetwright& document) {
    const QString text = DecodeFileText(ReadWholeFile(LinkedPagesFile(document)));
    const QString first = TitleOfDesign(document);
    for (const QStringView line : SplitLines(text)) {
        const QList<QStringView> titles = line.split(u'|');
        if (titles[0] != first) continue;
        const QStringView second = titles.value(1);
        const std::int16_t design = DesignOf(document.memory, second, Qt::CaseSensitive);
        return design == 0 ? std::nullopt : std::optional(Companion{design, second.toString()});
    }
    return std::nullopt;
}

}  // namespace sheetwright

#include "document/page_merging.h"

#include "core/application.h"
#include "core/paths.h"
#include "core/text.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "document/form_archive.h"
#include "document/form_reader.h"
#include "print/form_surfaces.h"
#include "print/own_picture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QScopeGuard>
#include <QSet>
#include <QTemporaryDir>

#include <utility>
#include <vector>

namespace sheetwright {

namespace {

constexpr qint64 kPiece = 256LL * 1024;  // bytes that are compared at a time
constexpr qsizetype kLongestBase = 200;  // bytes of a name that can still be lengthened
constexpr QDir::Filters kAllFiles = QDir::Files | QDir::Hidden | QDir::System;

// Names of pictures as they came, case-folded, and as the form has them now.
using NewNames = QHash<QString, QString>;

bool HasSameContent(const QString& one, const QString& other) {
    QFile first(one);
    QFile second(other);
    OpenForReading(first);
    OpenForReading(second);
    if (first.size() != second.size()) return false;
    while (!first.atEnd()) {
        const QByteArray piece = first.read(kPiece);
        if (piece.isEmpty()) throw Failure(failure::kDeviceError);
        if (second.read(piece.size()) != piece) return false;
    }
    return true;
}

// Takes the files of a merged template into the form's folder. What was taken goes again unless it is kept.
class PictureDelivery {
  public:
    PictureDelivery(const QString& from, const QString& to) : m_from(from), m_to(OnDisk(to)) {}
    PictureDelivery(const PictureDelivery&) = delete;
    PictureDelivery& operator=(const PictureDelivery&) = delete;
    ~PictureDelivery() {
        for (const QString& name : m_delivered)
            QFile::remove(m_to.filePath(name));
    }

    void Deliver();
    void Keep() { m_delivered.clear(); }
    // Of those that could not keep their names.
    [[nodiscard]] const NewNames& Renamed() const { return m_renamed; }

  private:
    void Look();
    void Plan(const QString& name);
    void CheckRoom() const;
    void Take();
    [[nodiscard]] QString UnusedName(const QString& name) const;

    QDir m_from;
    QDir m_to;
    QStringList m_incoming;
    QSet<QString> m_incomingNames;    // case-folded
    QHash<QString, QString> m_names;  // of the form's files, by their case-folded names
    NewNames m_renamed;
    std::vector<std::pair<QString, QString>> m_plan;  // names as they came and as they will be
    QStringList m_delivered;
};

void PictureDelivery::Deliver() {
    Look();
    for (const QString& name : m_incoming)
        Plan(name);
    CheckRoom();
    Take();
}

// An archive tells names apart without regard to case, so the form does.
void PictureDelivery::Look() {
    for (const QString& name : m_to.entryList(kAllFiles))
        m_names.insert(name.toCaseFolded(), name);
    for (const QString& name : m_from.entryList(kAllFiles, QDir::Name))
        if (!IsTextMemberName(name)) m_incoming << name;
    for (const QString& name : m_incoming)
        m_incomingNames.insert(name.toCaseFolded());
}

void PictureDelivery::Plan(const QString& name) {
    const auto own = m_names.constFind(name.toCaseFolded());
    const bool isTaken = own != m_names.constEnd();
    if (isTaken && HasSameContent(m_from.filePath(name), m_to.filePath(*own))) return;
    const QString target = isTaken ? UnusedName(name) : name;
    m_plan.emplace_back(name, target);
    m_names.insert(target.toCaseFolded(), target);
    if (isTaken) m_renamed.insert(name.toCaseFolded(), target);
}

// A form past these limits could be saved no more.
void PictureDelivery::CheckRoom() const {
    if (m_plan.empty()) return;
    if (m_names.size() > archive_limits::kMembers) throw Failure(failure::kTooManyFiles);
    qint64 bytes = 0;
    for (const QFileInfo& file : m_to.entryInfoList(kAllFiles))
        bytes += file.size();
    for (const auto& [name, target] : m_plan)
        bytes += QFileInfo(m_from.filePath(name)).size();
    if (bytes > archive_limits::kTotalBytes) throw Failure(failure::kOverflow);
}

void PictureDelivery::Take() {
    for (const auto& [name, target] : m_plan) {
        if (!QFile::rename(m_from.filePath(name), m_to.filePath(target))) throw Failure(failure::kPathAccess);
        m_delivered << target;
    }
}

QString PictureDelivery::UnusedName(const QString& name) const {
    const qsizetype dot = name.lastIndexOf(u'.');
    QString base = dot > 0 ? name.first(dot) : name;
    const QString extension = dot > 0 ? name.sliced(dot) : QString();
    if (base.toUtf8().size() > kLongestBase) base = QStringLiteral("picture");
    for (int number = 2;; ++number) {
        QString wanted = base + QStringLiteral("_%1").arg(number) + extension;
        const QString folded = wanted.toCaseFolded();
        if (!m_names.contains(folded) && !m_incomingNames.contains(folded)) return wanted;
    }
}

// The file's name in a line that names a picture; none in others.
QStringView PictureNameIn(QStringView line) {
    const QStringView key = KeyOf(line);
    const QStringView value = ValueOf(line);
    if (key.compare(u"PrePrinted", Qt::CaseInsensitive) == 0) {
        const qsizetype bar = value.indexOf(u'|');
        return bar < 0 ? value : value.first(bar);
    }
    if (key.compare(u"Picture", Qt::CaseInsensitive) != 0) return {};
    qsizetype start = value.size();
    while (start > 0 && !IsSeparator(value[start - 1]))
        --start;
    return value.sliced(start);
}

void RenameIn(MemoryBlock& memory, int page, const NewNames& renamed) {
    for (int position = 1; position <= memory.DesignPage(page).Count(); ++position) {
        const QStringView line = memory.DesignPage(page).Line(position);
        const QStringView name = PictureNameIn(line);
        if (name.isEmpty()) continue;
        const auto found = renamed.constFind(name.toString().toCaseFolded());
        if (found == renamed.constEnd()) continue;
        QString changed = line.toString();
        changed.replace(name.data() - line.data(), name.size(), *found);
        memory.ReplaceDesignLine(page, position, std::move(changed));
    }
}

// Pictures of the new designs that lie beside the template, as those of one in plain text do. What can't be
// taken leaves its box empty.
void TakeFromBeside(frmSheetwright& document, int before, const QString& folder, const QString& path) {
    const MemoryBlock& memory = document.memory;
    for (int page = before + 1; page <= memory.DesignPageCount(); ++page) {
        for (int position = 1; position <= memory.DesignPage(page).Count(); ++position) {
            const QString name = PictureNameIn(memory.DesignPage(page).Line(position)).toString();
            if (name.isEmpty() || IsTextMemberName(name)) continue;
            Ignoring([&] { (void)OwnPicture(document.surfaces->pictures, name, folder, GetFolder(path)); });
        }
    }
}

// Reads the template as if its folder were the form's.
void ReadFrom(frmSheetwright& document, const QString& folder, const QString& path) {
    const QString tag = std::exchange(document.Tag, path);
    const QString ownFolder = std::exchange(document.MyTempDir, folder);
    const auto putBack = qScopeGuard([&] {
        document.Tag = tag;
        document.MyTempDir = ownFolder;
    });
    UnZipForm(document.application, path, folder);
    ReadFormFile(document);
}

// Numbers may be left out in a template: those pages have no lines.
MergeResult DesignsBehind(const MemoryBlock& memory, int before) {
    MergeResult result;
    for (int page = memory.DesignPageCount(); page > before; --page) {
        if (memory.DesignPage(page).IsEmpty()) continue;
        ++result.added;
        result.design = static_cast<std::int16_t>(page);
    }
    return result;
}

MergeResult Merge(frmSheetwright& document, const QString& path) {
    const QTemporaryDir folder(OnDisk(document.MyTempDir) + QStringLiteral("merge-XXXXXX"));
    if (document.MyTempDir.isEmpty() || !folder.isValid()) throw Failure(failure::kPathAccess);
    const int before = document.memory.DesignPageCount();
    const QString unpacked = WithTrailingSeparator(folder.path());
    ReadFrom(document, unpacked, path);
    const MergeResult result = DesignsBehind(document.memory, before);
    if (result.added == 0) {
        if (FileExists(unpacked + GetFileName(path))) throw Failure(failure::kInputPastEnd);
        return result;
    }
    TakeFromBeside(document, before, unpacked, path);
    PictureDelivery pictures(unpacked, document.MyTempDir);
    pictures.Deliver();
    if (!pictures.Renamed().isEmpty())
        for (int page = before + 1; page <= document.memory.DesignPageCount(); ++page)
            RenameIn(document.memory, page, pictures.Renamed());
    pictures.Keep();
    return result;
}

}  // namespace

MergeResult MergeTemplate(frmSheetwright& document, const QString& path) {
    if (document.Pages < 1) throw Failure(failure::kInvalidCall);
    const HourglassPointer pointer(document.application.ui);
    const BusyDocument busy(document.Busy);
    const MemoryBlock before = document.memory;
    try {
        const MergeResult result = Merge(document, path);
        if (result.added > 0) document.Changed = true;
        return result;
    } catch (...) {
        document.memory = before;
        throw;
    }
}

bool GetPages(frmSheetwright& document, const QString& path, Placement mode,
              std::optional<std::int16_t> position) {
    const MergeResult merged = MergeTemplate(document, path);
    return merged.added == 1 && AddChosenPage(document, merged.design, mode, position);
}

}  // namespace sheetwright

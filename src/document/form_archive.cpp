#include "document/form_archive.h"

#include "core/application.h"
#include "core/atomic_file.h"
#include "core/error_log.h"
#include "core/paths.h"
#include "document/form_archive_rules.h"
#include "document/zip_reader.h"
#include "document/zip_writer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <optional>

namespace sheetwright {

namespace {

constexpr qint64 kPiece = 256LL * 1024;  // bytes that are copied or compared at a time
constexpr QByteArrayView kUtf8Mark("\xEF\xBB\xBF");
constexpr QByteArrayView kVersionWord("VERSION");

// Shows and logs a failure of the archive. Control characters of a hostile member's name stay out of the log.
void Report(Application& application, const QString& sub, const QString& path, QString member, int number) {
    application.ui.ShowMessage(
        application.Translate(QStringLiteral("Error code %1"), QString::number(number)), application.Title,
        MessageIcon::Critical);
    std::replace_if(
        member.begin(), member.end(), [](QChar unit) { return unit.category() == QChar::Other_Control; },
        u'?');
    const QString additional = member.isEmpty() ? path : path + u' ' + member;
    Ignoring([&] { LogError(application, sub, additional, number); });
}

// A folder inside the destination where files lie until all of them are whole. It vanishes with what it
// holds.
class Staging {
  public:
    explicit Staging(const QString& destination)
        : m_destination(WithTrailingSeparator(OnDisk(destination))),
          m_folder(m_destination + QStringLiteral("unpack-XXXXXX")) {
        if (m_folder.isValid() && !m_destination.isEmpty()) return;
        throw Failure(QFileInfo(m_destination).isDir() ? failure::kPathAccess : failure::kPathNotFound);
    }

    [[nodiscard]] QString PathOf(const QString& name) const { return m_folder.filePath(name); }

    // Puts the files in place, over files of the same names. Either all or none of them are there afterwards.
    void Deliver(const QStringList& names) const {
        const auto isFolder = [this](const QString& name) { return QFileInfo(m_destination + name).isDir(); };
        if (std::any_of(names.begin(), names.end(), isFolder)) throw Failure(failure::kPathAccess);
        QStringList delivered;
        for (const QString& name : names) {
            if (!MoveOver(PathOf(name), m_destination + name)) {
                for (const QString& done : delivered)
                    QFile::remove(m_destination + done);
                throw Failure(failure::kPathAccess);
            }
            delivered << name;
        }
    }

    // Renames a delivered file unless the new name is taken.
    void Rename(const QString& name, const QString& newName) const {
        QFile::rename(m_destination + name, m_destination + newName);
    }

  private:
    static bool MoveOver(const QString& from, const QString& to) {
        QFile::remove(to);
        return QFile::rename(from, to);
    }

    QString m_destination;
    QTemporaryDir m_folder;
};

bool BeginsAsPlainText(QFile& file) {
    QByteArray start = file.peek(kUtf8Mark.size() + kVersionWord.size());
    if (start.startsWith(kUtf8Mark)) start.remove(0, kUtf8Mark.size());
    return start.startsWith(kVersionWord);
}

// Takes the open file, not its name: under that an archive may lie by now, if another program saves the form.
void CopyPlainText(QFile& source, const QString& name, const QString& destination) {
    const Staging staging(destination);
    const NewFile copy(staging.PathOf(name));
    qint64 bytes = 0;
    while (!source.atEnd()) {
        const QByteArray piece = source.read(kPiece);
        if (piece.isEmpty()) throw Failure(failure::kDeviceError);
        bytes += piece.size();
        if (bytes > archive_limits::kMemberBytes) throw Failure(failure::kOverflow);
        copy.Write(piece);
    }
    staging.Deliver({name});
}

// Hands every member to `take`, piece by piece, after all of them passed the rules. `begin` is told of each
// before.
template <typename Begin, typename Take>
void ReadMembers(const ZipReader& archive, qint64 archiveBytes, QString& current, Begin&& begin,
                 Take&& take) {
    CheckMembers(archive.Members(), archiveBytes, current);
    UnpackedBytes unpacked(archiveBytes);
    for (const ZipMember& member : archive.Members()) {
        current = member.name;
        begin(member);
        unpacked.BeginMember();
        archive.Read(member, [&](QByteArrayView piece) {
            unpacked.Take(piece.size());
            take(piece);
        });
    }
    current.clear();
}

QStringList NamesOf(const ZipReader& archive) {
    QStringList names;
    for (const ZipMember& member : archive.Members())
        names << member.name;
    return names;
}

void UnpackArchive(const QString& path, const QString& destination, QString& current) {
    const QString file = OnDisk(path);
    const ZipReader archive(file, archive_limits::kMembers);
    const Staging staging(destination);
    std::optional<NewFile> output;
    const auto begin = [&](const ZipMember& member) { output.emplace(staging.PathOf(member.name)); };
    ReadMembers(archive, QFileInfo(file).size(), current, begin,
                [&](QByteArrayView piece) { output->Write(piece); });
    const QStringList names = NamesOf(archive);
    staging.Deliver(names);
    const auto text = std::find_if(names.begin(), names.end(), IsTextMemberName);
    if (text != names.end())
        staging.Rename(*text, GetFileName(path, true) + QStringLiteral(".af") + text->back());
}

// The files of a folder in the order in which they are packed: the text first, so that it is found at once.
std::vector<FileToPack> FilesOf(const QString& source) {
    const QString path = OnDisk(source);
    const QDir folder(path);
    if (path.isEmpty() || !folder.exists()) throw Failure(failure::kPathNotFound);
    std::vector<FileToPack> files;
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden, QDir::Name))
        files.push_back({name, folder.filePath(name)});
    std::stable_partition(files.begin(), files.end(),
                          [](const FileToPack& file) { return IsTextMemberName(file.name); });
    // A form without its text must never replace a good one.
    if (files.empty() || !IsTextMemberName(files.front().name)) throw Failure(failure::kFileNotFound);
    return files;
}

// Reads a new archive as it will be read one day and compares each member with the file that it was made
// from.
void Verify(const QString& path, const std::vector<FileToPack>& files, QString& current) {
    const ZipReader archive(path, archive_limits::kMembers, ZipReader::Check::Strict);
    const std::size_t count = archive.Members().size();
    if (count != files.size()) throw Failure(failure::kDeviceError);
    QFile original;
    const auto begin = [&](const ZipMember& member) {
        const FileToPack& file = files[member.index];
        original.close();
        original.setFileName(file.path);
        OpenForReading(original);
        const bool isSame = member.name == file.name && static_cast<qint64>(member.size) == original.size();
        if (!isSame) throw Failure(failure::kDeviceError);
    };
    ReadMembers(archive, QFileInfo(path).size(), current, begin, [&](QByteArrayView piece) {
        if (original.read(piece.size()) != piece) throw Failure(failure::kDeviceError);
    });
}

qint64 BytesOf(const std::vector<FileToPack>& files) {
    qint64 bytes = 0;
    for (const FileToPack& file : files)
        bytes += QFileInfo(file.path).size();
    return bytes;
}

void StoreForm(const QString& path, const QString& source, QString& current) {
    const std::vector<FileToPack> files = FilesOf(source);
    AtomicFile output(path, kUnfinishedFormSuffix.toString());
    WriteZip(output.Beside(), files, Packing::Deflated);
    // What packs this well would be refused on reading: a large picture of one colour, for instance.
    if (IsTooDense(BytesOf(files), QFileInfo(output.BesidePath()).size()))
        WriteZip(output.Beside(), files, Packing::Stored);
    output.Beside().Flush();
    Verify(output.BesidePath(), files, current);
    output.Replace();
}

}  // namespace

bool IsTextMemberName(const QString& name) {
    return name.size() >= 4 && QStringView(name).chopped(1).endsWith(u".af", Qt::CaseInsensitive);
}

bool IsPlainTextForm(const QString& path) {
    QFile file(OnDisk(path));
    OpenForReading(file);
    return BeginsAsPlainText(file);
}

void UnZipForm(Application& application, const QString& path, const QString& destination) {
    QFile file(OnDisk(path));
    OpenForReading(file);
    if (BeginsAsPlainText(file)) {
        CopyPlainText(file, GetFileName(path), destination);
        return;
    }
    QString member;
    const auto caught = Ignoring([&] { UnpackArchive(path, destination, member); });
    if (caught) Report(application, QStringLiteral("UnZipForm"), path, member, caught->Number());
}

bool ZipForm(Application& application, const QString& path, const QString& source) {
    application.ui.SetPointer(Pointer::Hourglass);
    application.ui.SetStatus(application.Translate(QStringLiteral("Storing File...")));
    QString member;
    const auto caught = Ignoring([&] { StoreForm(path, source, member); });
    if (caught) Report(application, QStringLiteral("ZipForm"), path, member, caught->Number());
    application.ui.SetStatus(application.Translate(QStringLiteral("Ready")));
    application.ui.SetPointer(Pointer::Normal);
    return !caught;
}

QStringList ArchiveMembers(const QString& path) {
    if (IsPlainTextForm(path)) return {GetFileName(path)};
    const QString file = OnDisk(path);
    const ZipReader archive(file, archive_limits::kMembers);
    QString current;
    ReadMembers(
        archive, QFileInfo(file).size(), current, [](const ZipMember&) {}, [](QByteArrayView) {});
    return NamesOf(archive);
}

}  // namespace sheetwright

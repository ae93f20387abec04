#include "document/form_archive_rules.h"

#include "core/failure.h"
#include "core/paths.h"
#include "document/form_archive.h"
#include "document/zip_reader.h"

#include <QSet>

#include <algorithm>

namespace sheetwright {

namespace {

bool HasDriveLetter(const QString& name) {
    return name.size() > 1 && name[1] == u':' && name[0].isLetter();
}

bool IsBareFileName(const QString& name) {
    if (name.isEmpty() || name == u"." || name == u".." || HasDriveLetter(name)) return false;
    if (name.toUtf8().size() > archive_limits::kNameLength) return false;
    return std::none_of(name.begin(), name.end(), [](QChar character) {
        return IsSeparator(character) || character.category() == QChar::Other_Control;
    });
}

void CheckMember(const ZipMember& member) {
    if (!IsBareFileName(member.name)) throw Failure(failure::kBadFileName);
    if (member.isEncrypted) throw Failure(failure::kPermissionDenied);
    if (!member.isPlainFile) throw Failure(failure::kInvalidFormat);
    if (member.size > static_cast<std::uint64_t>(archive_limits::kMemberBytes))
        throw Failure(failure::kOverflow);
}

void CheckTotal(qint64 unpackedBytes, qint64 archiveBytes) {
    if (unpackedBytes > archive_limits::kTotalBytes || IsTooDense(unpackedBytes, archiveBytes))
        throw Failure(failure::kOverflow);
}

}  // namespace

void CheckMembers(const std::vector<ZipMember>& members, qint64 archiveBytes, QString& current) {
    if (members.size() > static_cast<std::size_t>(archive_limits::kMembers))
        throw Failure(failure::kTooManyFiles);
    QSet<QString> names;
    qint64 total = 0;
    bool hasText = false;
    for (const ZipMember& member : members) {
        current = member.name;
        CheckMember(member);
        const QString folded = member.name.toCaseFolded();
        if (names.contains(folded)) throw Failure(failure::kFileExists);
        names.insert(folded);
        const bool isText = IsTextMemberName(member.name);
        if (isText && hasText) throw Failure(failure::kInvalidFormat);
        hasText = hasText || isText;
        total += static_cast<qint64>(member.size);
        CheckTotal(total, archiveBytes);
    }
    current.clear();
}

void UnpackedBytes::Take(qint64 bytes) {
    m_member += bytes;
    m_total += bytes;
    if (m_member > archive_limits::kMemberBytes) throw Failure(failure::kOverflow);
    CheckTotal(m_total, m_archiveBytes);
}

bool IsTooDense(qint64 unpackedBytes, qint64 archiveBytes) {
    return unpackedBytes > archive_limits::kRatioFloor &&
           unpackedBytes / archive_limits::kRatio > archiveBytes;
}

}  // namespace sheetwright

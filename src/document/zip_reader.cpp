#include "document/zip_reader.h"

#include "core/failure.h"
#include "document/zip_failure.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <string>

namespace sheetwright {

namespace {

constexpr std::size_t kPiece = 256UL * 1024;  // bytes that are unpacked at a time

// What the "made by" system keeps in the upper half of a member's attributes.
constexpr zip_uint32_t kUnixTypeMask = 0170000;
constexpr zip_uint32_t kUnixPlainFile = 0100000;

struct CloseMember {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};
using OpenMember = std::unique_ptr<zip_file_t, CloseMember>;

bool IsPlainFile(zip_t* archive, zip_uint64_t index) {
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(archive, index, 0, &system, &attributes) != 0) return false;
    const zip_uint32_t type = (attributes >> 16) & kUnixTypeMask;
    return type == 0 || type == kUnixPlainFile;
}

int OpeningFailure(int code) {
    zip_error_t error{};
    zip_error_init_with_code(&error, code);
    const int number = ReadingFailure(error);
    zip_error_fini(&error);
    return number;
}

}  // namespace

void ZipReader::Discard::operator()(zip* archive) const {
    zip_discard(archive);
}

ZipReader::ZipReader(const QString& path, std::uint64_t mostMembers, Check check) {
    // The library takes an empty file for an archive of no members.
    if (const QFileInfo info(path); info.exists() && info.size() == 0) throw Failure(failure::kInvalidFormat);
    int code = 0;
    const int flags = ZIP_RDONLY | (check == Check::Strict ? ZIP_CHECKCONS : 0);
    m_archive.reset(zip_open(QFile::encodeName(path).constData(), flags, &code));
    if (!m_archive) throw Failure(OpeningFailure(code));
    const auto count = static_cast<std::uint64_t>(zip_get_num_entries(m_archive.get(), 0));
    if (count > mostMembers) throw Failure(failure::kTooManyFiles);
    m_members.reserve(count);
    for (std::uint64_t index = 0; index < count; ++index)
        m_members.push_back(Describe(index));
}

ZipMember ZipReader::Describe(std::uint64_t index) const {
    zip_stat_t status;
    zip_stat_init(&status);
    constexpr zip_uint64_t kNeeded = ZIP_STAT_SIZE | ZIP_STAT_ENCRYPTION_METHOD;
    if (zip_stat_index(m_archive.get(), index, 0, &status) != 0 || (status.valid & kNeeded) != kNeeded)
        throw Failure(failure::kInvalidFormat);
    return {index, NameOf(index), status.size, status.encryption_method != ZIP_EM_NONE,
            IsPlainFile(m_archive.get(), index)};
}

QString ZipReader::NameOf(std::uint64_t index) const {
    const char* const raw = zip_get_name(m_archive.get(), index, ZIP_FL_ENC_RAW);
    if (raw == nullptr) throw Failure(failure::kInvalidFormat);
    const std::string bytes = raw;
    const char* const guessed = zip_get_name(m_archive.get(), index, ZIP_FL_ENC_GUESS);
    if (guessed == nullptr) throw Failure(failure::kInvalidFormat);
    // The library turns control characters into the pictures that code page 437 had for them.
    const auto isControl = [](char byte) { return byte >= 0 && byte < ' '; };
    const bool hasControl = std::any_of(bytes.begin(), bytes.end(), isControl);
    return QString::fromStdString(hasControl ? bytes : std::string(guessed));
}

void ZipReader::Read(const ZipMember& member, const std::function<void(QByteArrayView)>& take) const {
    const OpenMember file(zip_fopen_index(m_archive.get(), member.index, 0));
    if (!file) throw Failure(ReadingFailure(*zip_get_error(m_archive.get())));
    std::vector<char> piece(kPiece);
    std::uint64_t total = 0;
    for (;;) {
        const zip_int64_t count = zip_fread(file.get(), piece.data(), piece.size());
        if (count < 0) throw Failure(ReadingFailure(*zip_file_get_error(file.get())));
        if (count == 0) break;
        total += static_cast<std::uint64_t>(count);
        take(QByteArrayView(piece.data(), static_cast<qsizetype>(count)));
    }
    if (total != member.size) throw Failure(failure::kInvalidFormat);
}

}  // namespace sheetwright

#include "document/zip_writer.h"

#include "core/atomic_file.h"
#include "core/failure.h"
#include "core/paths.h"
#include "document/zip_failure.h"

#include <QFile>

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <memory>

namespace sheetwright {

namespace {

// Fast enough that a form of 50 MB is packed in about a second, and within a few percent of the best.
constexpr zip_uint32_t kDeflateLevel = 4;

// Lets the zip library write into an open file. By itself it would write to a file of its own choosing and
// rename that, and could neither be asked what went wrong nor flush anything to the disk.
class ZipOutput {
  public:
    explicit ZipOutput(const NewFile& file) : m_file(file) { zip_error_init(&m_error); }
    ZipOutput(const ZipOutput&) = delete;
    ZipOutput& operator=(const ZipOutput&) = delete;
    ~ZipOutput() { zip_error_fini(&m_error); }

    // The system's error number of the first call that failed; 0 while all went well.
    [[nodiscard]] int SystemError() const { return m_systemError; }

    static zip_int64_t Handle(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command);

  private:
    using Step = zip_int64_t (ZipOutput::*)(void* data, zip_uint64_t length);
    struct Command {
        zip_source_cmd_t command;
        Step step;
    };
    static const std::array<Command, 15> kCommands;

    zip_int64_t Nothing(void* /*data*/, zip_uint64_t /*length*/) { return 0; }
    zip_int64_t Supports(void* data, zip_uint64_t length);
    zip_int64_t Status(void* data, zip_uint64_t length);
    zip_int64_t BeginWrite(void* data, zip_uint64_t length);
    zip_int64_t Write(void* data, zip_uint64_t length);
    zip_int64_t SeekWrite(void* data, zip_uint64_t length);
    zip_int64_t TellWrite(void* data, zip_uint64_t length);
    zip_int64_t Error(void* data, zip_uint64_t length);
    zip_int64_t Fail(int error);

    const NewFile& m_file;
    zip_error_t m_error{};
    int m_systemError = 0;
};

const std::array<ZipOutput::Command, 15> ZipOutput::kCommands{{
    {ZIP_SOURCE_OPEN, &ZipOutput::Nothing},
    {ZIP_SOURCE_READ, &ZipOutput::Nothing},
    {ZIP_SOURCE_SEEK, &ZipOutput::Nothing},
    {ZIP_SOURCE_TELL, &ZipOutput::Nothing},
    {ZIP_SOURCE_CLOSE, &ZipOutput::Nothing},
    {ZIP_SOURCE_FREE, &ZipOutput::Nothing},
    {ZIP_SOURCE_STAT, &ZipOutput::Status},
    {ZIP_SOURCE_ERROR, &ZipOutput::Error},
    {ZIP_SOURCE_SUPPORTS, &ZipOutput::Supports},
    {ZIP_SOURCE_BEGIN_WRITE, &ZipOutput::BeginWrite},
    {ZIP_SOURCE_WRITE, &ZipOutput::Write},
    {ZIP_SOURCE_SEEK_WRITE, &ZipOutput::SeekWrite},
    {ZIP_SOURCE_TELL_WRITE, &ZipOutput::TellWrite},
    {ZIP_SOURCE_COMMIT_WRITE, &ZipOutput::Nothing},
    {ZIP_SOURCE_ROLLBACK_WRITE, &ZipOutput::Nothing},
}};

zip_int64_t ZipOutput::Handle(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command) {
    auto* const output = static_cast<ZipOutput*>(self);
    for (const Command& known : kCommands)
        if (known.command == command) return (output->*known.step)(data, length);
    zip_error_set(&output->m_error, ZIP_ER_OPNOTSUPP, 0);
    return -1;
}

zip_int64_t ZipOutput::Supports(void* /*data*/, zip_uint64_t /*length*/) {
    zip_int64_t commands = zip_source_make_command_bitmap(ZIP_SOURCE_REMOVE, -1);
    for (const Command& known : kCommands)
        commands |= zip_source_make_command_bitmap(known.command, -1);
    return commands;
}

zip_int64_t ZipOutput::Status(void* data, zip_uint64_t length) {
    if (length < sizeof(zip_stat_t)) return Fail(EINVAL);
    auto* const status = static_cast<zip_stat_t*>(data);
    zip_stat_init(status);
    status->size = 0;
    status->valid |= ZIP_STAT_SIZE;
    return sizeof(zip_stat_t);
}

zip_int64_t ZipOutput::BeginWrite(void* /*data*/, zip_uint64_t /*length*/) {
    if (::ftruncate(m_file.Handle(), 0) != 0 || ::lseek(m_file.Handle(), 0, SEEK_SET) != 0)
        return Fail(errno);
    return 0;
}

zip_int64_t ZipOutput::Write(void* data, zip_uint64_t length) {
    const QByteArrayView bytes(static_cast<const char*>(data), static_cast<qsizetype>(length));
    if (const int error = m_file.TryWrite(bytes); error != 0) return Fail(error);
    return static_cast<zip_int64_t>(length);
}

zip_int64_t ZipOutput::SeekWrite(void* data, zip_uint64_t length) {
    const off_t end = ::lseek(m_file.Handle(), 0, SEEK_END);
    const zip_int64_t current = TellWrite(nullptr, 0);
    if (end < 0 || current < 0) return Fail(errno);
    const zip_int64_t offset = zip_source_seek_compute_offset(
        static_cast<zip_uint64_t>(current), static_cast<zip_uint64_t>(end), data, length, &m_error);
    if (offset < 0) return -1;
    return ::lseek(m_file.Handle(), offset, SEEK_SET) == offset ? 0 : Fail(errno);
}

zip_int64_t ZipOutput::TellWrite(void* /*data*/, zip_uint64_t /*length*/) {
    const off_t at = ::lseek(m_file.Handle(), 0, SEEK_CUR);
    return at < 0 ? Fail(errno) : at;
}

zip_int64_t ZipOutput::Error(void* data, zip_uint64_t length) {
    return zip_error_to_data(&m_error, data, length);
}

zip_int64_t ZipOutput::Fail(int error) {
    if (m_systemError == 0) m_systemError = error;
    zip_error_set(&m_error, ZIP_ER_WRITE, error);
    return -1;
}

struct DiscardArchive {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
using NewArchive = std::unique_ptr<zip_t, DiscardArchive>;

NewArchive OpenNew(ZipOutput& output) {
    zip_error_t error{};
    zip_error_init(&error);
    zip_source_t* const source = zip_source_function_create(&ZipOutput::Handle, &output, &error);
    NewArchive archive(source == nullptr ? nullptr
                                         : zip_open_from_source(source, ZIP_CREATE | ZIP_TRUNCATE, &error));
    if (!archive) zip_source_free(source);
    const int number = WritingFailure(error);
    zip_error_fini(&error);
    if (!archive) throw Failure(number);
    return archive;
}

[[noreturn]] void RaiseErrorOf(zip_t* archive) {
    throw Failure(WritingFailure(*zip_get_error(archive)));
}

void AddFile(zip_t* archive, const FileToPack& file, Packing packing) {
    zip_source_t* const source = zip_source_file(archive, QFile::encodeName(file.path).constData(), 0, -1);
    if (source == nullptr) RaiseErrorOf(archive);
    const zip_int64_t index = zip_file_add(archive, file.name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        RaiseErrorOf(archive);
    }
    const zip_int32_t method = packing == Packing::Deflated ? ZIP_CM_DEFLATE : ZIP_CM_STORE;
    const zip_uint32_t level = packing == Packing::Deflated ? kDeflateLevel : 0;
    if (zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), method, level) != 0)
        RaiseErrorOf(archive);
}

}  // namespace

void WriteZip(const NewFile& output, const std::vector<FileToPack>& files, Packing packing) {
    ZipOutput target(output);
    NewArchive archive = OpenNew(target);
    for (const FileToPack& file : files)
        AddFile(archive.get(), file, packing);
    if (zip_close(archive.get()) != 0) {
        if (target.SystemError() != 0) throw Failure(FailureNumberOfErrno(target.SystemError()));
        RaiseErrorOf(archive.get());
    }
    static_cast<void>(archive.release());
}

}  // namespace sheetwright

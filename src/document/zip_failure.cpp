#include "document/zip_failure.h"

#include "core/failure.h"
#include "core/paths.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace sheetwright {

namespace {

struct ZipErrorName {
    int error;
    int number;
};

constexpr std::array kZipErrorNames{
    ZipErrorName{ZIP_ER_MEMORY, failure::kOutOfMemory},
    ZipErrorName{ZIP_ER_EXISTS, failure::kFileExists},
    ZipErrorName{ZIP_ER_NOENT, failure::kFileNotFound},
    ZipErrorName{ZIP_ER_ENCRNOTSUPP, failure::kPermissionDenied},
    ZipErrorName{ZIP_ER_NOPASSWD, failure::kPermissionDenied},
    ZipErrorName{ZIP_ER_WRONGPASSWD, failure::kPermissionDenied},
};

// The system speaks of the disk only when it opens and writes files. While an archive is read, a position
// beyond its end is the archive's own lie.
bool IsOfTheDisk(const zip_error_t& error) {
    const int code = error.zip_err;
    const bool isOpenOrWrite = code == ZIP_ER_OPEN || code == ZIP_ER_WRITE || code == ZIP_ER_TMPOPEN;
    return isOpenOrWrite || (code == ZIP_ER_READ && error.sys_err == EIO);
}

}  // namespace

int FailureNumberOfZip(const zip_error_t& error) {
    if (IsOfTheDisk(error)) return FailureNumberOfErrno(error.sys_err);
    const auto* found =
        std::find_if(kZipErrorNames.begin(), kZipErrorNames.end(),
                     [&error](const ZipErrorName& name) { return name.error == error.zip_err; });
    return found == kZipErrorNames.end() ? failure::kInvalidFormat : found->number;
}

}  // namespace sheetwright

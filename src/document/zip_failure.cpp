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

int OwnFailure(const zip_error_t& error) {
    const auto* found =
        std::find_if(kZipErrorNames.begin(), kZipErrorNames.end(),
                     [&error](const ZipErrorName& name) { return name.error == error.zip_err; });
    return found == kZipErrorNames.end() ? failure::kInvalidFormat : found->number;
}

}  // namespace

int ReadingFailure(const zip_error_t& error) {
    const bool isOfTheSystem =
        error.zip_err == ZIP_ER_OPEN || (error.zip_err == ZIP_ER_READ && error.sys_err == EIO);
    return isOfTheSystem ? FailureNumberOfErrno(error.sys_err) : OwnFailure(error);
}

int WritingFailure(const zip_error_t& error) {
    const bool isOfTheSystem = zip_error_system_type(&error) == ZIP_ET_SYS;
    return isOfTheSystem ? FailureNumberOfErrno(error.sys_err) : OwnFailure(error);
}

}  // namespace sheetwright

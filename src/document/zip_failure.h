#pragma once

// Failure numbers for errors of the zip library.

#include <zip.h>

namespace sheetwright {

// While an archive is read the system's errors are mostly the archive's own lies: a position before its
// start, a length beyond its end. Only opening it, and a disk that can't read, are the system's.
[[nodiscard]] int ReadingFailure(const zip_error_t& error);

// While an archive is written every error of the system is one of the files or the disk.
[[nodiscard]] int WritingFailure(const zip_error_t& error);

}  // namespace sheetwright

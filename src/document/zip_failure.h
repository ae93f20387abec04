#pragma once

// The failure number for an error of the zip library.

#include <zip.h>

namespace sheetwright {

[[nodiscard]] int FailureNumberOfZip(const zip_error_t& error);

}  // namespace sheetwright

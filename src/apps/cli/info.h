#pragma once

#include "apps/cli/verb.h"

namespace sheetwright::cli {

[[nodiscard]] Verb InfoVerb();

}  // namespace sheetwright::cli

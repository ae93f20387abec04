#pragma once

#include "apps/cli/verb.h"

namespace sheetwright::cli {

[[nodiscard]] Verb ValuesVerb();

}  // namespace sheetwright::cli

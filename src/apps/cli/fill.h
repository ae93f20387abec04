#pragma once

#include "apps/cli/verb.h"

namespace sheetwright::cli {

[[nodiscard]] Verb FillVerb();

}  // namespace sheetwright::cli

#pragma once

#include "apps/cli/verb.h"

namespace sheetwright::cli {

[[nodiscard]] Verb CheckVerb();

}  // namespace sheetwright::cli

#pragma once

#include "apps/cli/verb.h"

namespace sheetwright::cli {

[[nodiscard]] Verb EvalVerb();

}  // namespace sheetwright::cli

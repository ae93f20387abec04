#pragma once

#include "apps/cli/verb.h"

namespace sheetwright::cli {

[[nodiscard]] Verb RenderVerb();

}  // namespace sheetwright::cli

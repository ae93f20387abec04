#pragma once

// What the tester measures on one appliance, in order or with a fault of one kind. What is in order keeps
// within the usual limits: 0.3 ohms of earth, 1 (class I) or 2 (class II) megohms of insulation, 0.75 or 0.25
// milliamperes of leakage.

#include "apps/simulated_tester/catalogue.h"
#include "apps/simulated_tester/draws.h"

#include <QString>

namespace sheetwright {

enum class Fault { None, Defect, HighEarth, LowInsulation, HighLeakage };

[[nodiscard]] Fault DrawFault(Draws& draws, const Appliance& appliance);

[[nodiscard]] QString DrawEarth(Draws& draws, const Appliance& appliance, Fault fault);  // "" for class II
[[nodiscard]] QString DrawInsulation(Draws& draws, const Appliance& appliance, Fault fault);
[[nodiscard]] QString DrawLeakage(Draws& draws, const Appliance& appliance, Fault fault);

}  // namespace sheetwright

#pragma once

#include <functional>

namespace sheetwright {

class UserInterface;

// Pumps messages until `timer`, in seconds since midnight, has passed its value at the start + `seconds`, or
// has run backward past midnight. The default timer is the system's clock.
void Pause(double seconds, UserInterface& ui, const std::function<double()>& timer = {});

}  // namespace sheetwright

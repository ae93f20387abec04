#pragma once

// Where the program lies in which people keep the lists of their forms.

#include <QString>

namespace sheetwright {

class Application;

// Full path of the list editor: one in the current folder, otherwise one beside this program; "" where there
// is none that can be started.
[[nodiscard]] QString ListProgram(const Application& application);

}  // namespace sheetwright

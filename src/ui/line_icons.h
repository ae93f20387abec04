#pragma once

// The program's own icons: line drawings in the colour of the text that they stand beside, so that they are
// legible on light and dark.

#include <QIcon>

class QColor;

namespace sheetwright {

// The drawing of that name, such as "open". Empty where the platform can't read such drawings.
[[nodiscard]] QIcon LineIcon(const QString& name, const QColor& colour);

// The program's emblem. The viewer has one of its own.
[[nodiscard]] QIcon ProgramIcon(bool isViewer = false);

}  // namespace sheetwright

#pragma once

// Which fonts may stand in for families that a form names and that this machine lacks.

#include <QString>
#include <QStringList>

namespace sheetwright {

// Families to try for `family` (in lower case), best first. Empty for a family that nothing is known of.
[[nodiscard]] QStringList FontStandIns(const QString& family);

// Families that have many signs, best first.
[[nodiscard]] QStringList SymbolStandIns();

}  // namespace sheetwright

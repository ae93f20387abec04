#pragma once

// Finding one text in another in a time that grows with their lengths, whatever they hold.

#include <QStringView>

namespace sheetwright {

// Whether `part` occurs in `text`, case-sensitively. An empty part occurs everywhere.
[[nodiscard]] bool Occurs(QStringView part, QStringView text);

}  // namespace sheetwright

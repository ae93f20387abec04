#pragma once

// Pieces of other people's texts within messages: in quotes, and short whatever their length.

#include <QString>
#include <QStringView>

namespace sheetwright {

// The first 60 characters of `text`, with "..." where there are more.
[[nodiscard]] QString Shortened(QStringView text);

// The same in double quotes.
[[nodiscard]] QString Quoted(QStringView text);

}  // namespace sheetwright

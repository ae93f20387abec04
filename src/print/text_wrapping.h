#pragma once

// Where texts break into lines: at blanks, and inside a word that is wider than its box.

#include <QString>

namespace sheetwright {

class Measurer;

// `text` with a CR LF wherever it must break to fit `width`: at blanks, inside a word with a hyphen. Widths
// are measured on `measurer`, in time in proportion to the text. A box too narrow for one character loses the
// lines before it.
[[nodiscard]] QString WrappedText(const Measurer& measurer, const QString& text, double width);

}  // namespace sheetwright

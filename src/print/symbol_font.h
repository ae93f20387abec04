#pragma once

// Fonts of signs, whose characters look nothing like the letters by which a form names them. Where such a
// font is not installed its signs are drawn by the Unicode characters that look alike.

#include <QChar>
#include <QStringView>

namespace sheetwright {

enum class SymbolSet { None, Wingdings, Wingdings2, Webdings, Greek };

// The set of a family given in lower case.
[[nodiscard]] SymbolSet SymbolSetOf(QStringView family);

// The sign for a character of that font; the character itself where no sign is known.
[[nodiscard]] QChar SymbolNamesake(SymbolSet set, QChar character);

}  // namespace sheetwright

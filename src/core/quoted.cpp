#include "core/quoted.h"

namespace sheetwright {

QString Shortened(QStringView text) {
    constexpr qsizetype kLongest = 60;
    if (text.size() <= kLongest) return text.toString();
    const bool isPairCut = text[kLongest - 1].isHighSurrogate();
    return text.first(isPairCut ? kLongest - 1 : kLongest).toString() + QStringLiteral("...");
}

QString Quoted(QStringView text) {
    return u'"' + Shortened(text) + u'"';
}

}  // namespace sheetwright

#include "formula/function_text_search.h"

#include <vector>

namespace sheetwright {

namespace {

// Up to this length the library's search is fast on any text.
constexpr qsizetype kShortPart = 64;

// For each length of a beginning of `part`, the length of the longest shorter beginning that also ends it.
std::vector<qsizetype> BordersOf(QStringView part) {
    std::vector<qsizetype> borders(static_cast<std::size_t>(part.size()) + 1, 0);
    qsizetype border = 0;
    for (qsizetype length = 2; length <= part.size(); ++length) {
        while (border > 0 && part[border] != part[length - 1])
            border = borders[static_cast<std::size_t>(border)];
        if (part[border] == part[length - 1]) ++border;
        borders[static_cast<std::size_t>(length)] = border;
    }
    return borders;
}

// Never goes back in `text`: after a mismatch the longest border of what matched goes on.
bool OccursLong(QStringView part, QStringView text) {
    const std::vector<qsizetype> borders = BordersOf(part);
    qsizetype matched = 0;
    for (const QChar character : text) {
        while (matched > 0 && part[matched] != character)
            matched = borders[static_cast<std::size_t>(matched)];
        if (part[matched] == character) ++matched;
        if (matched == part.size()) return true;
    }
    return false;
}

}  // namespace

bool Occurs(QStringView part, QStringView text) {
    if (part.isEmpty()) return true;
    if (part.size() > text.size()) return false;
    return part.size() <= kShortPart ? text.contains(part) : OccursLong(part, text);
}

}  // namespace sheetwright

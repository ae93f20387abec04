#include "core/contained_name.h"

#include "core/paths.h"

#include <algorithm>

namespace sheetwright {

namespace {

// Looking a path up takes time for each of its parts.
constexpr qsizetype kLongestName = 1024;

bool IsForbidden(QChar character) {
    constexpr char16_t kBlank = 0x20;
    return character.unicode() < kBlank || character == u':';
}

// A system may drop the blanks and dots at the end of a name: ".. " is ".." there.
bool LeadsElsewhere(QStringView part) {
    return !part.isEmpty() && std::all_of(part.begin(), part.end(), [](QChar character) {
        return character == u'.' || character == u' ';
    });
}

}  // namespace

bool IsContainedName(QStringView name) {
    if (name.isEmpty() || name.size() > kLongestName) return false;
    if (IsSeparator(name.front()) || IsSeparator(name.back())) return false;
    if (std::any_of(name.begin(), name.end(), IsForbidden)) return false;
    while (!name.isEmpty()) {
        const auto* const end = std::find_if(name.begin(), name.end(), IsSeparator);
        const qsizetype length = end - name.begin();
        if (LeadsElsewhere(name.first(length))) return false;
        name = name.sliced(std::min(length + 1, name.size()));
    }
    return true;
}

}  // namespace sheetwright

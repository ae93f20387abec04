#include "formula/display_mask_lexer.h"

#include <algorithm>

namespace sheetwright {

std::vector<MaskCharacter> ReadMask(QStringView mask) {
    std::vector<MaskCharacter> characters;
    characters.reserve(static_cast<std::size_t>(mask.size()));
    bool isQuoted = false;
    for (qsizetype at = 0; at < mask.size(); ++at) {
        if (mask[at] == u'"') {
            isQuoted = !isQuoted;
        } else if (mask[at] == u'\\' && !isQuoted && at + 1 < mask.size()) {
            characters.push_back({mask[++at], true});
        } else {
            characters.push_back({mask[at], isQuoted});
        }
    }
    return characters;
}

std::vector<MaskSection> SplitSections(const std::vector<MaskCharacter>& mask) {
    std::vector<MaskSection> sections;
    auto start = mask.begin();
    while (true) {
        const auto end =
            std::find_if(start, mask.end(), [](const MaskCharacter& here) { return here.Is(u';'); });
        sections.emplace_back(start, end);
        if (end == mask.end()) return sections;
        start = end + 1;
    }
}

}  // namespace sheetwright

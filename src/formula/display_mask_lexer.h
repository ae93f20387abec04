#pragma once

// The first look at a display mask: which of its characters stand for themselves and where its sections end.

#include <QChar>
#include <QStringView>

#include <span>
#include <vector>

namespace sheetwright {

struct MaskCharacter {
    QChar character;
    bool isFixed = false;  // written in quotes or behind a backslash

    [[nodiscard]] bool Is(QChar letter) const { return !isFixed && character == letter; }
    [[nodiscard]] bool IsOneOf(QStringView letters) const { return !isFixed && letters.contains(character); }
};

using MaskSection = std::span<const MaskCharacter>;

// Takes quotes and backslashes away. A quote without its partner reaches to the end.
[[nodiscard]] std::vector<MaskCharacter> ReadMask(QStringView mask);

// The parts between the semicolons; at least one.
[[nodiscard]] std::vector<MaskSection> SplitSections(const std::vector<MaskCharacter>& mask);

}  // namespace sheetwright

#include "formula/display_mask_text.h"

#include <algorithm>
#include <utility>

namespace sheetwright {

namespace {

bool Holds(MaskSection section, QChar letter) {
    return std::any_of(section.begin(), section.end(),
                       [letter](const MaskCharacter& here) { return here.Is(letter); });
}

qsizetype CountPlaces(MaskSection section) {
    return std::count_if(section.begin(), section.end(),
                         [](const MaskCharacter& here) { return here.IsOneOf(u"@&"); });
}

// Fills the places of a section with a text; what has no place goes where the filling ends.
QString Filled(QStringView text, MaskSection section) {
    const qsizetype places = CountPlaces(section);
    const bool isFromLeft = Holds(section, u'!');
    qsizetype without = isFromLeft ? 0 : std::max<qsizetype>(places - text.size(), 0);
    QStringView rest = text;
    const auto take = [&rest](qsizetype count) {
        const QStringView taken = rest.first(std::min(count, rest.size()));
        rest = rest.sliced(taken.size());
        return taken;
    };
    const qsizetype tooMany = std::max<qsizetype>(text.size() - places, 0);
    qsizetype inFront = isFromLeft || places == 0 ? 0 : tooMany;
    QString result;
    for (const MaskCharacter& here : section) {
        if (here.IsOneOf(u"@&")) {
            result += take(std::exchange(inFront, 0));
            const bool isFilled = without > 0 ? (--without, false) : !rest.isEmpty();
            if (isFilled) {
                result += take(1);
            } else if (here.character == u'@') {
                result += u' ';
            }
        } else if (!here.IsOneOf(u"<>!")) {
            result += here.character;
        }
    }
    result += rest;
    return result;
}

}  // namespace

QString FormatText(QStringView text, MaskSection section) {
    const QString filled = Filled(text, section);
    if (Holds(section, u'<')) return filled.toLower();
    return Holds(section, u'>') ? filled.toUpper() : filled;
}

}  // namespace sheetwright

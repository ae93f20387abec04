#include "print/symbol_font.h"

#include <array>
#include <span>
#include <string_view>

namespace sheetwright {

namespace {

// A row of signs for codes that follow one another.
struct SymbolRow {
    char16_t firstCode;
    const char16_t* signs;
};

constexpr std::array kWingdings = std::to_array<SymbolRow>({
    {0x21, u"✏✂✁"},
    {0x28, u"☎✆✉✉"},
    {0x36, u"⌛⌨"},
    {0x3E, u"✇✍✍✌"},
    {0x45, u"☜☞☝☟✋☺"},
    {0x4C, u"☹"},
    {0x4E, u"☠⚐⚑✈☼"},
    {0x54, u"❄✞✞✠✠✡☪☯ॐ☸♈♉♊♋♌♍♎♏♐♑♒♓"},
    {0x6A, u"&&●❍■□□❑❒♦⧫◆❖◆☒"},
    {0x7A, u"⌘❀✿❝❞"},
    {0x80, u"⓪①②③④⑤⑥⑦⑧⑨⑩⓿❶❷❸❹❺❻❼❽❾❿"},
    {0x96, u"❧☙☙❧❧☙☙❧·•▪○○○◉◎❍▪◻"},
    {0xAA, u"✦★✶✴✹✵⌖⌖✧⌑"},
    {0xB5, u"✪✰"},
    {0xD5, u"⌫⌦"},
    {0xD8, u"➢"},
    {0xDC, u"➲"},
    {0xDF, u"←→↑↓↖↗↙↘⇐➔⇑⇓↖↗↙↘⇦⇨⇧⇩⇔⇕↖↗↙↘▭▫✗✓☒☑⊞"},
});

constexpr std::array kWingdings2 = std::to_array<SymbolRow>({
    {0x4F, u"✗✓☒☑☒☒"},
    {0x95, u"·•●●"},
    {0x9A, u"○○◉◎"},
    {0x9E, u"▪■■■□□□□▣"},
});

constexpr std::array kWebdings = std::to_array<SymbolRow>({
    {0x33, u"◀▶▲▼"},
    {0x61, u"✓"},
    {0x63, u"□"},
    {0x67, u"■"},
    {0x6E, u"●"},
    {0x72, u"✗"},
});

constexpr std::array kGreek = std::to_array<SymbolRow>({
    {0x22, u"∀"},
    {0x24, u"∃"},
    {0x27, u"∋"},
    {0x2A, u"∗"},
    {0x2D, u"−"},
    {0x40, u"≅ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ"},
    {0x5C, u"∴"},
    {0x5E, u"⊥"},
    {0x60, u"‾αβχδεφγηιϕκλμνοπθρστυϖωξψζ"},
    {0x7E, u"∼"},
    {0xA0, u"€ϒ′≤⁄∞ƒ♣♦♥♠↔←↑→↓°±″≥×∝∂•÷≠≡≈…⏐⎯↵ℵℑℜ℘⊗⊕∅∩∪⊃⊇⊄⊂⊆∈∉∠∇®©™∏√⋅¬∧∨⇔⇐⇑⇒⇓◊〈®©™∑⎛⎜⎝⎡⎢⎣⎧⎨⎩⎪"},
    {0xF1, u"〉∫⌠⎮⌡⎞⎟⎠⎤⎥⎦⎫⎬⎭"},
});

std::span<const SymbolRow> RowsOf(SymbolSet set) {
    switch (set) {
        case SymbolSet::Wingdings:
            return kWingdings;
        case SymbolSet::Wingdings2:
            return kWingdings2;
        case SymbolSet::Webdings:
            return kWebdings;
        case SymbolSet::Greek:
            return kGreek;
        case SymbolSet::None:
            break;
    }
    return {};
}

// What the code page has at 128 to 159; signs are named by their code, whatever letter stands there.
constexpr std::u16string_view kUpperCodePage =
    u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
    u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";

// The code of a character in the font: of one byte, or shifted into the private range as some programs do.
char16_t CodeOf(char16_t character) {
    if (character < 0x100) return character;
    if (character >= 0xF000 && character <= 0xF0FF) return static_cast<char16_t>(character - 0xF000);
    const std::size_t upper = kUpperCodePage.find(character);
    return upper == std::u16string_view::npos ? u'\0' : static_cast<char16_t>(0x80 + upper);
}

}  // namespace

SymbolSet SymbolSetOf(QStringView family) {
    if (family == u"wingdings") return SymbolSet::Wingdings;
    if (family == u"wingdings 2") return SymbolSet::Wingdings2;
    if (family == u"webdings") return SymbolSet::Webdings;
    return family == u"symbol" ? SymbolSet::Greek : SymbolSet::None;
}

QChar SymbolNamesake(SymbolSet set, QChar character) {
    const char16_t code = CodeOf(character.unicode());
    for (const SymbolRow& row : RowsOf(set)) {
        const std::u16string_view signs(row.signs);
        if (code >= row.firstCode && code - row.firstCode < static_cast<int>(signs.size())) {
            return signs[static_cast<std::size_t>(code - row.firstCode)];
        }
    }
    return character;
}

}  // namespace sheetwright

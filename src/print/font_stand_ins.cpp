#include "print/font_stand_ins.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace sheetwright {

namespace {

enum class Design { Sans, Narrow, Serif, Mono };

struct KnownFamily {
    std::u16string_view name;  // in lower case
    Design design;
};

constexpr std::array kKnownFamilies = std::to_array<KnownFamily>({
    {u"arial", Design::Sans},
    {u"arial black", Design::Sans},
    {u"arial narrow", Design::Narrow},
    {u"arial unicode ms", Design::Sans},
    {u"book antiqua", Design::Serif},
    {u"bookman old style", Design::Serif},
    {u"calibri", Design::Sans},
    {u"cambria", Design::Serif},
    {u"candara", Design::Sans},
    {u"century gothic", Design::Sans},
    {u"century schoolbook", Design::Serif},
    {u"comic sans ms", Design::Sans},
    {u"consolas", Design::Mono},
    {u"constantia", Design::Serif},
    {u"corbel", Design::Sans},
    {u"courier", Design::Mono},
    {u"courier new", Design::Mono},
    {u"fixedsys", Design::Mono},
    {u"franklin gothic medium", Design::Sans},
    {u"garamond", Design::Serif},
    {u"geneva", Design::Sans},
    {u"georgia", Design::Serif},
    {u"helvetica", Design::Sans},
    {u"helvetica narrow", Design::Narrow},
    {u"impact", Design::Narrow},
    {u"lucida console", Design::Mono},
    {u"lucida sans", Design::Sans},
    {u"lucida sans unicode", Design::Sans},
    {u"microsoft sans serif", Design::Sans},
    {u"monaco", Design::Mono},
    {u"monospace", Design::Mono},
    {u"ms sans serif", Design::Sans},
    {u"ms serif", Design::Serif},
    {u"ms shell dlg", Design::Sans},
    {u"ms shell dlg 2", Design::Sans},
    {u"palatino linotype", Design::Serif},
    {u"sans", Design::Sans},
    {u"sans serif", Design::Sans},
    {u"segoe ui", Design::Sans},
    {u"serif", Design::Serif},
    {u"small fonts", Design::Sans},
    {u"system", Design::Sans},
    {u"tahoma", Design::Sans},
    {u"terminal", Design::Mono},
    {u"times", Design::Serif},
    {u"times new roman", Design::Serif},
    {u"trebuchet ms", Design::Sans},
    {u"univers", Design::Sans},
    {u"verdana", Design::Sans},
});

static_assert(std::is_sorted(kKnownFamilies.begin(), kKnownFamilies.end(),
                             [](const KnownFamily& a, const KnownFamily& b) { return a.name < b.name; }));

// The first of each has the metrics of the family that it stands for.
QStringList FamiliesOf(Design design) {
    switch (design) {
        case Design::Narrow:
            return {QStringLiteral("Liberation Sans Narrow"),
                    QStringLiteral("Nimbus Sans Narrow"),
                    QStringLiteral("Arial Narrow"),
                    QStringLiteral("Liberation Sans"),
                    QStringLiteral("Arial"),
                    QStringLiteral("DejaVu Sans")};
        case Design::Serif:
            return {QStringLiteral("Liberation Serif"), QStringLiteral("Tinos"),
                    QStringLiteral("Times New Roman"), QStringLiteral("Nimbus Roman"),
                    QStringLiteral("DejaVu Serif")};
        case Design::Mono:
            return {QStringLiteral("Liberation Mono"), QStringLiteral("Cousine"),
                    QStringLiteral("Courier New"), QStringLiteral("Nimbus Mono PS"),
                    QStringLiteral("DejaVu Sans Mono")};
        case Design::Sans:
            break;
    }
    return {QStringLiteral("Liberation Sans"), QStringLiteral("Arimo"), QStringLiteral("Arial"),
            QStringLiteral("Nimbus Sans"), QStringLiteral("DejaVu Sans")};
}

}  // namespace

QStringList FontStandIns(const QString& family) {
    const std::u16string_view name(reinterpret_cast<const char16_t*>(family.utf16()),
                                   static_cast<std::size_t>(family.size()));
    const auto* const found = std::lower_bound(
        kKnownFamilies.begin(), kKnownFamilies.end(), name,
        [](const KnownFamily& known, std::u16string_view wanted) { return known.name < wanted; });
    if (found == kKnownFamilies.end() || found->name != name) return {};
    return FamiliesOf(found->design);
}

QStringList SymbolStandIns() {
    return {QStringLiteral("DejaVu Sans"), QStringLiteral("Segoe UI Symbol"), QStringLiteral("Apple Symbols"),
            QStringLiteral("Noto Sans Symbols2"), QStringLiteral("Symbola")};
}

}  // namespace sheetwright

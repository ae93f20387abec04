#include "print/fonts.h"

#include "core/application.h"
#include "print/font_face.h"
#include "print/font_stand_ins.h"
#include "print/units.h"

#include <QFontDatabase>
#include <QHash>

#include <algorithm>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

namespace sheetwright {

namespace {

constexpr double kPointsPerInch = 72;
constexpr qsizetype kLongestName = 100;
constexpr std::size_t kMostDrawnFonts = 256;
constexpr double kSmallestPoints = 0.01;
constexpr double kLargestHinted = 60;  // pixels

struct FamilyChoice {
    QStringList families;
    SymbolSet symbols = SymbolSet::None;
};

// Twips at this size for one pixel at the reference size of a face.
double ScaleOf(const FontSpec& font) {
    return font.size * kTwipsPerPoint / FontFace::kReferencePixels;
}

}  // namespace

struct Fonts::Cache {
    using FaceKey = std::tuple<QString, bool, bool>;
    using DrawnKey = std::tuple<QString, double, bool, bool, bool, bool, double, double>;

    const QHash<QString, QString>& Installed();
    [[nodiscard]] QStringList InstalledOf(const QStringList& families);
    [[nodiscard]] FamilyChoice Choose(const QString& lowered);
    [[nodiscard]] bool IsKnown(const QString& lowered);
    const FontFace& Face(const FontSpec& font);
    const FontFace& Find(const FontSpec& font);

    std::optional<QHash<QString, QString>> installed;  // lower-case name to name
    std::map<FaceKey, FontFace> faces;
    std::map<DrawnKey, QFont> drawn;

    const FontFace* last = nullptr;
    QString lastFamily;
    bool lastBold = false;
    bool lastItalic = false;
};

const QHash<QString, QString>& Fonts::Cache::Installed() {
    if (!installed) {
        installed.emplace();
        for (const QString& family : QFontDatabase::families()) {
            const qsizetype foundry = family.indexOf(QStringLiteral(" ["));
            const QString name = foundry < 0 ? family : family.first(foundry);
            installed->insert(name.toLower(), name);
        }
    }
    return *installed;
}

QStringList Fonts::Cache::InstalledOf(const QStringList& families) {
    QStringList found;
    for (const QString& family : families) {
        const QString name = Installed().value(family.toLower());
        if (!name.isEmpty()) found.append(name);
    }
    return found.isEmpty() ? families.first(1) : found;
}

FamilyChoice Fonts::Cache::Choose(const QString& lowered) {
    const QString own = Installed().value(lowered);
    if (!own.isEmpty()) return {{own}};
    const SymbolSet symbols = SymbolSetOf(lowered);
    if (symbols != SymbolSet::None) return {InstalledOf(SymbolStandIns()), symbols};
    return {InstalledOf(FontStandIns(lowered)).first(1)};
}

bool Fonts::Cache::IsKnown(const QString& lowered) {
    return Installed().contains(lowered) || SymbolSetOf(lowered) != SymbolSet::None ||
           !FontStandIns(lowered).isEmpty();
}

const FontFace& Fonts::Cache::Face(const FontSpec& font) {
    if (last != nullptr && lastBold == font.bold && lastItalic == font.italic && lastFamily == font.family) {
        return *last;
    }
    last = &Find(font);
    lastFamily = font.family;
    lastBold = font.bold;
    lastItalic = font.italic;
    return *last;
}

const FontFace& Fonts::Cache::Find(const FontSpec& font) {
    QString lowered = font.family.size() <= kLongestName ? font.family.toLower() : QString();
    if (!IsKnown(lowered)) lowered = QStringLiteral("arial");
    const FaceKey key(lowered, font.bold, font.italic);
    const auto found = faces.find(key);
    if (found != faces.end()) return found->second;
    const FamilyChoice choice = Choose(lowered);
    return faces
        .emplace(std::piecewise_construct, std::forward_as_tuple(key),
                 std::forward_as_tuple(choice.families, font.bold, font.italic, choice.symbols))
        .first->second;
}

Fonts::Fonts() : m_cache(std::make_unique<Cache>()) {}

Fonts::~Fonts() = default;

bool Fonts::HasFamily(const QString& family) const {
    return !family.isEmpty() && family.size() <= kLongestName && m_cache->IsKnown(family.toLower());
}

double Fonts::Width(const FontSpec& font, QStringView text) const {
    return m_cache->Face(font).Width(text) * ScaleOf(font);
}

double Fonts::LineHeight(const FontSpec& font) const {
    return m_cache->Face(font).LineHeight() * ScaleOf(font);
}

qsizetype Fonts::Fitting(const FontSpec& font, QStringView text, double width) const {
    return m_cache->Face(font).Fitting(text, ScaleOf(font), width);
}

double Fonts::Ascent(const FontSpec& font) const {
    return m_cache->Face(font).Ascent() * ScaleOf(font);
}

const QFont& Fonts::Drawn(const FontSpec& font, double pixelsPerTwip, double dotsPerInch) const {
    const Cache::DrawnKey key(font.family, font.size, font.bold, font.italic, font.underline, font.strikethru,
                              pixelsPerTwip, dotsPerInch);
    const auto found = m_cache->drawn.find(key);
    if (found != m_cache->drawn.end()) return found->second;
    if (m_cache->drawn.size() >= kMostDrawnFonts) m_cache->drawn.clear();

    QFont drawn = FaceOf(font).Reference();
    const double points = font.size * kTwipsPerPoint * pixelsPerTwip * kPointsPerInch / dotsPerInch;
    drawn.setPointSizeF(points >= kSmallestPoints ? points : kSmallestPoints);
    drawn.setHintingPreference(points * dotsPerInch / kPointsPerInch < kLargestHinted
                                   ? QFont::PreferVerticalHinting
                                   : QFont::PreferNoHinting);
    drawn.setUnderline(font.underline);
    drawn.setStrikeOut(font.strikethru);
    return m_cache->drawn.emplace(key, std::move(drawn)).first->second;
}

QString Fonts::DrawnText(const FontSpec& font, const QString& text) const {
    return m_cache->Face(font).Shown(text);
}

const FontFace& Fonts::FaceOf(const FontSpec& font) const {
    return m_cache->Face(font);
}

Fonts& FontsOf(Application& application) {
    std::shared_ptr<Fonts>& fonts = application.printing.fonts;
    if (!fonts) fonts = std::make_shared<Fonts>();
    return *fonts;
}

}  // namespace sheetwright

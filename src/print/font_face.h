#pragma once

// One face of a font (family, bold, italic) with the advances of its characters. Kerning and ligatures are
// off, so that a plain text is as wide as its characters together; other scripts are measured by runs.

#include "print/symbol_font.h"

#include <QFont>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QHash>
#include <QRawFont>
#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>

namespace sheetwright {

class FontFace {
  public:
    // `families`: the one to use, then those that lend it characters. With a symbol set the characters are
    // signs, drawn by their namesakes.
    FontFace(const QStringList& families, bool bold, bool italic, SymbolSet symbols);

    // All measures hold for this size in pixels, at which outlines aren't rounded, and grow with the size.
    static constexpr int kReferencePixels = 2048;
    [[nodiscard]] const QFont& Reference() const { return m_reference; }

    [[nodiscard]] double Ascent() const { return m_ascent; }
    [[nodiscard]] double LineHeight() const { return m_lineHeight; }
    [[nodiscard]] double Width(QStringView text) const;
    // Leading units of `text` whose width, times `scale`, is at most `width`.
    [[nodiscard]] qsizetype Fitting(QStringView text, double scale, double width) const;

    // Where a line under or through a text lies, from the baseline down, and how thick it is.
    [[nodiscard]] double UnderlinePosition() const { return m_underline; }
    [[nodiscard]] double StrikethruPosition() const { return m_strikethru; }
    [[nodiscard]] double LineThickness() const { return m_lineThickness; }

    // See Fonts::DrawnText.
    [[nodiscard]] QString Shown(const QString& text) const;

    // The glyphs of `text` at a size in pixels, each exactly where it was measured. None when the text needs
    // shaping or characters that this face lacks.
    [[nodiscard]] std::optional<QGlyphRun> Glyphs(const QString& text, double pixels) const;

  private:
    struct Character {
        float advance;        // kNeedsRun: measured only as part of a run
        std::uint32_t glyph;  // 0: not in this face
    };
    using CharacterPage = std::array<Character, 256>;
    struct RunPart {
        qsizetype size;  // in units from the front
        double width;    // only where that is the whole run
    };
    static constexpr float kNeedsRun = -1;
    static constexpr float kUnknown = -2;

    [[nodiscard]] const Character& CharacterOf(char16_t unit) const {
        const std::unique_ptr<CharacterPage>& page = m_pages[unit >> 8U];
        if (page && (*page)[unit & 0xFFU].advance >= kNeedsRun) return (*page)[unit & 0xFFU];
        return Load(unit);
    }
    const Character& Load(char16_t unit) const;
    [[nodiscard]] Character Measured(char16_t unit) const;
    [[nodiscard]] qsizetype RunEnd(QStringView text, qsizetype start) const;
    [[nodiscard]] RunPart FittingInRun(QStringView run, double before, double scale, double width) const;
    [[nodiscard]] double RunWidth(QStringView run) const;
    [[nodiscard]] const QRawFont& Sized(double pixels) const;

    QFont m_reference;
    QFontMetricsF m_metrics;
    QRawFont m_glyphs;
    SymbolSet m_symbols;
    double m_ascent;
    double m_lineHeight;
    double m_underline;
    double m_strikethru;
    double m_lineThickness;
    mutable std::array<std::unique_ptr<CharacterPage>, 256> m_pages;
    mutable std::unordered_map<double, QRawFont> m_sized;
    mutable QHash<QString, double> m_runs;  // a line that is broken measures the same runs several times
};

}  // namespace sheetwright

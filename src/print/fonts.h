#pragma once

// The fonts of this machine as forms see them. Where a form's family is not installed, one with the same
// metrics stands in (Arial by Liberation Sans); where no Wingdings is, its signs are drawn by their Unicode
// namesakes. Widths are those of the unhinted outlines and grow in proportion to the size, so that a text has
// the same width on every surface. Needs a QGuiApplication on first use, not on construction. To be
// used by one thread.

#include "print/text_metrics.h"

#include <QFont>

#include <memory>

namespace sheetwright {

class Application;
class FontFace;

class Fonts : public TextMetrics {
  public:
    Fonts();
    ~Fonts() override;

    [[nodiscard]] bool HasFamily(const QString& family) const override;
    [[nodiscard]] double Width(const FontSpec& font, QStringView text) const override;
    [[nodiscard]] double LineHeight(const FontSpec& font) const override;
    [[nodiscard]] qsizetype Fitting(const FontSpec& font, QStringView text, double width) const override;

    // From the top of a line to its baseline, in twips.
    [[nodiscard]] double Ascent(const FontSpec& font) const;

    // The font with which to draw on a surface where `pixelsPerTwip` and `dotsPerInch` (what its paint device
    // says of itself) hold. Underline and strikethru are set. Qt rounds it to whole pixels, so that at screen
    // resolution its widths are only near those above. Valid until the next call.
    [[nodiscard]] const QFont& Drawn(const FontSpec& font, double pixelsPerTwip, double dotsPerInch) const;

    // What to draw for `text` in that font: signs of a symbol font that isn't installed become their Unicode
    // namesakes, control characters blanks.
    [[nodiscard]] QString DrawnText(const FontSpec& font, const QString& text) const;

    // The face behind a font, for those who draw with it.
    [[nodiscard]] const FontFace& FaceOf(const FontSpec& font) const;

  private:
    struct Cache;
    std::unique_ptr<Cache> m_cache;
};

// The application's one set of fonts.
[[nodiscard]] Fonts& FontsOf(Application& application);

}  // namespace sheetwright

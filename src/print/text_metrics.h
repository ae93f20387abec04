#pragma once

// How wide and high texts are. All layout asks this port, so that tests can give every character a width of
// their own.

#include "print/font_spec.h"

#include <QString>
#include <QStringView>

namespace sheetwright {

class TextMetrics {
  public:
    TextMetrics() = default;
    TextMetrics(const TextMetrics&) = delete;
    TextMetrics& operator=(const TextMetrics&) = delete;
    virtual ~TextMetrics() = default;

    // Whether texts can be set in a family of that name, in any case, by itself or by a stand-in.
    [[nodiscard]] virtual bool HasFamily(const QString& family) const = 0;

    // In twips. The width of a text doesn't depend on underline and strikethru.
    [[nodiscard]] virtual double Width(const FontSpec& font, QStringView text) const = 0;
    [[nodiscard]] virtual double LineHeight(const FontSpec& font) const = 0;

    // The largest number of leading UTF-16 units of `text` whose width is at most `width` twips; never ends
    // between the halves of a surrogate pair. Takes time in proportion to the units that fit, not to the
    // whole text.
    [[nodiscard]] virtual qsizetype Fitting(const FontSpec& font, QStringView text, double width) const = 0;
};

}  // namespace sheetwright

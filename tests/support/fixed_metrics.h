#pragma once

// Metrics for tests whose widths can be reckoned in the head: every character is equally wide in every font,
// except those that are given a width of their own.

#include "print/text_metrics.h"

#include <QChar>
#include <QHash>
#include <QStringList>

#include <optional>

namespace sheetwright {

class FixedMetrics : public TextMetrics {
  public:
    // Widths and heights in twips, whatever the font and its size.
    explicit FixedMetrics(double width = 120, double lineHeight = 240)
        : m_width(width), m_lineHeight(lineHeight) {}

    void SetWidth(double width) { m_width = width; }
    void SetWidthOf(QChar character, double width) { m_widths.insert(character, width); }
    void SetLineHeight(double height) { m_lineHeight = height; }
    // From now on only these can be had.
    void SetFamilies(const QStringList& families) { m_families = families; }

    [[nodiscard]] bool HasFamily(const QString& family) const override {
        return m_families ? m_families->contains(family, Qt::CaseInsensitive) : !family.isEmpty();
    }

    [[nodiscard]] double Width(const FontSpec&, QStringView text) const override {
        double width = 0;
        for (const QChar character : text)
            width += WidthOf(character);
        return width;
    }

    [[nodiscard]] double LineHeight(const FontSpec&) const override { return m_lineHeight; }

    [[nodiscard]] qsizetype Fitting(const FontSpec&, QStringView text, double width) const override {
        if (width < 0) return 0;
        double used = 0;
        qsizetype count = 0;
        while (count < text.size() && (used += WidthOf(text[count])) <= width)
            ++count;
        return count;
    }

  private:
    // The second half of a surrogate pair has no width, so that the pair counts as one character.
    [[nodiscard]] double WidthOf(QChar character) const {
        return character.isLowSurrogate() ? 0 : m_widths.value(character, m_width);
    }

    double m_width;
    double m_lineHeight;
    QHash<QChar, double> m_widths;
    std::optional<QStringList> m_families;
};

}  // namespace sheetwright

#pragma once

// Texts of a metafile: their bytes, font and place.

#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <libwmf/ipa.h>

namespace sheetwright {

// A line of text in pixels around its point of reference, before it is turned and stretched.
struct TextLine {
    wmfD_Coord reference;  // in units of the player
    QString text;
    QFont font;
    QPointF baseline;    // where the text begins
    QRectF box;          // from the top of the line to its bottom
    double degrees = 0;  // clockwise
    double stretch = 1;  // of widths
};

// `scaleX` and `scaleY` are pixels for each unit of the player.
[[nodiscard]] TextLine TextLineOf(const wmfDrawText_t& text, double scaleX, double scaleY);

}  // namespace sheetwright

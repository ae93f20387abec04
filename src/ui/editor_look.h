#pragma once

// How the editor's widgets are to look so that nothing jumps when a field is entered: font, colours and
// where the text stands, all as the page shows the field.

#include "print/recording.h"

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QSize>

class QWidget;

namespace sheetwright {

class frmSheetwright;

struct EditorLook {
    QFont font;
    QColor text;
    QColor base;
    Qt::Alignment alignment = Qt::AlignLeft;
    int left = 0;      // pixels from the field's edge to its text
    int baseline = 0;  // pixels from the field's top to the first line's baseline
    int overhang = 0;  // pixels by which a text on the right reaches out of the field, with its cursor
    int arrow = 0;     // pixels on the right that the arrow of a list or calendar takes
    int height = 0;    // pixels that the field has at least, for one line of its text
};

inline constexpr int kCursorWidth = 1;  // pixels

// The width of such an arrow in a field of that size.
[[nodiscard]] int ArrowWidth(const QSize& field);

// Of `Page::Entry`, without an arrow. `screen` tells the palette and the resolution.
[[nodiscard]] EditorLook LookOfEntry(frmSheetwright& document, const QWidget& screen, double pixelsPerTwip);

// A colour of the form; those that name one of the system's come from the palette.
[[nodiscard]] QColor ScreenColour(Colour colour, const QPalette& palette);

// The palette of an edit box with that look.
[[nodiscard]] QPalette PaletteOf(const EditorLook& look, QPalette palette);

}  // namespace sheetwright

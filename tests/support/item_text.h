#pragma once

// Recorded drawing as text, one readable line for each item, with exact numbers, for comparing in tests:
//
//   line 100,200 300,200 pen 15/0/0x000000                       (width/style/colour)
//   box 0,0 300,200 pen 15/0/0x000000 fill 1/0x0000ff            (style/colour)
//   ellipse 150,100 50x30 pen 15/0/0x000000 fill 1/0x000000      (centre, half axes)
//   text 15,45 "Name" Arial 8.25 bold underline 0x000000
//   picture 0,0 300x200 from 0,0 150x100 of 150x100 pixels       ("of ... items" for a recorded picture)

#include "print/recording.h"

#include <QLocale>
#include <QStringList>

#include <variant>

namespace sheetwright {

namespace item_text {

inline QString Number(double number) {
    return QString::number(number, 'f', QLocale::FloatingPointShortest);
}

inline QString Pair(double x, double y, QChar between = u',') {
    return Number(x) + between + Number(y);
}

inline QString ColourText(Colour colour) {
    return QStringLiteral("0x%1").arg(colour, 6, 16, QLatin1Char('0'));
}

inline QString PenText(const Pen& pen) {
    return QStringLiteral(" pen %1/%2/%3").arg(Number(pen.width)).arg(pen.style).arg(ColourText(pen.colour));
}

inline QString FillText(const Fill& fill) {
    return QStringLiteral(" fill %1/%2").arg(fill.style).arg(ColourText(fill.colour));
}

inline QString RectText(const QRectF& rect) {
    return Pair(rect.x(), rect.y()) + u' ' + Pair(rect.width(), rect.height(), u'x');
}

inline QString FontText(const FontSpec& font) {
    QString text = font.family + u' ' + Number(font.size);
    if (font.bold) text += u" bold";
    if (font.italic) text += u" italic";
    if (font.underline) text += u" underline";
    if (font.strikethru) text += u" strikethru";
    return text;
}

struct Writer {
    QString operator()(const DrawnLine& line) const {
        return QStringLiteral("line ") + Pair(line.x1, line.y1) + u' ' + Pair(line.x2, line.y2) +
               PenText(line.pen);
    }
    QString operator()(const DrawnBox& box) const {
        return QStringLiteral("box ") + Pair(box.x1, box.y1) + u' ' + Pair(box.x2, box.y2) +
               PenText(box.pen) + FillText(box.fill);
    }
    QString operator()(const DrawnEllipse& ellipse) const {
        return QStringLiteral("ellipse ") + Pair(ellipse.cx, ellipse.cy) + u' ' +
               Pair(ellipse.rx, ellipse.ry, u'x') + PenText(ellipse.pen) + FillText(ellipse.fill);
    }
    QString operator()(const DrawnText& text) const {
        return QStringLiteral("text ") + Pair(text.x, text.y) + QStringLiteral(" \"") + text.text +
               QStringLiteral("\" ") + FontText(text.font) + u' ' + ColourText(text.colour);
    }
    QString operator()(const DrawnPicture& drawn) const {
        const Picture& picture = drawn.picture;
        const QString content =
            picture.recording == nullptr
                ? Pair(picture.image.width(), picture.image.height(), u'x') + QStringLiteral(" pixels")
                : QString::number(picture.recording->Items().size()) + QStringLiteral(" items");
        return QStringLiteral("picture ") + RectText(drawn.target) + QStringLiteral(" from ") +
               RectText(drawn.source) + QStringLiteral(" of ") + content;
    }
};

}  // namespace item_text

[[nodiscard]] inline QString TextOf(const DrawnItem& item) {
    return std::visit(item_text::Writer{}, item);
}

[[nodiscard]] inline QStringList TextsOf(const Recording& recording) {
    QStringList texts;
    for (const DrawnItem& item : recording.Items())
        texts.append(TextOf(item));
    return texts;
}

}  // namespace sheetwright

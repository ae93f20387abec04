#include "ui/drag_pictures.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <cmath>

namespace sheetwright {

namespace {

constexpr int kSide = 32;
constexpr int kCopying = 2;
const QPointF kTip(1.5, 1.5);
const QRectF kSheet(12.5, 13.5, 12, 15);
constexpr double kFold = 4;
const QPointF kBadge(25, 26);
constexpr double kBadgeRadius = 5.5;

void DrawArrow(QPainter& painter) {
    const QPolygonF arrow({{0, 0}, {0, 15}, {3.5, 11.8}, {6, 17.5}, {8.4, 16.4}, {6, 10.9}, {10.6, 10.6}});
    painter.setPen(QPen(Qt::white, 1.2));
    painter.setBrush(Qt::black);
    painter.drawPolygon(arrow.translated(kTip));
}

void DrawSheet(QPainter& painter) {
    const QPointF fold(kSheet.right() - kFold, kSheet.top() + kFold);
    QPainterPath sheet(kSheet.topLeft());
    sheet.lineTo(fold.x(), kSheet.top());
    sheet.lineTo(kSheet.right(), fold.y());
    sheet.lineTo(kSheet.bottomRight());
    sheet.lineTo(kSheet.bottomLeft());
    sheet.closeSubpath();
    painter.setPen(QPen(QColor(0x4A, 0x55, 0x68), 1));
    painter.setBrush(QColor(255, 255, 255, 235));
    painter.drawPath(sheet);
    painter.drawPolyline(QPolygonF({{fold.x(), kSheet.top()}, fold, {kSheet.right(), fold.y()}}));
    painter.setPen(QPen(QColor(0x8A, 0x97, 0xA8), 1));
    for (double y = kSheet.top() + 7; y < kSheet.bottom() - 2; y += 3)
        painter.drawLine(QPointF(kSheet.left() + 2.5, y), QPointF(kSheet.right() - 2.5, y));
}

void DrawPlus(QPainter& painter) {
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(QColor(0x1F, 0x8A, 0x4C));
    painter.drawEllipse(kBadge, kBadgeRadius, kBadgeRadius);
    painter.setPen(QPen(Qt::white, 1.8, Qt::SolidLine, Qt::FlatCap));
    constexpr double kArm = 3.2;
    painter.drawLine(kBadge - QPointF(kArm, 0), kBadge + QPointF(kArm, 0));
    painter.drawLine(kBadge - QPointF(0, kArm), kBadge + QPointF(0, kArm));
}

}  // namespace

QPixmap DragPicture(int mode, double devicePixelRatio) {
    const int pixels = static_cast<int>(std::ceil(kSide * devicePixelRatio));
    QPixmap picture(pixels, pixels);
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawSheet(painter);
    DrawArrow(painter);
    if (mode == kCopying) DrawPlus(painter);
    return picture;
}

QCursor DragCursor(int mode, double devicePixelRatio) {
    return QCursor(DragPicture(mode, devicePixelRatio), qRound(kTip.x()), qRound(kTip.y()));
}

}  // namespace sheetwright

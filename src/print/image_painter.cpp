#include "print/image_painter.h"

#include <QPixmap>
#include <QPixmapCache>

#include <algorithm>
#include <cmath>

namespace sheetwright {

namespace {

constexpr double kReducedALot = 1.5;  // from there on pixels are averaged before they are drawn
constexpr double kFarOff = 4000;      // units beyond what can be seen, from where on targets are cut

// The part of `from` that lies to it as `part` lies to `whole`.
QRectF Corresponding(const QRectF& part, const QRectF& whole, const QRectF& from) {
    const double sx = from.width() / whole.width();
    const double sy = from.height() / whole.height();
    return {from.left() + (part.left() - whole.left()) * sx, from.top() + (part.top() - whole.top()) * sy,
            part.width() * sx, part.height() * sy};
}

bool AreFinite(const QRectF& rect) {
    return std::isfinite(rect.x()) && std::isfinite(rect.y()) && std::isfinite(rect.width()) &&
           std::isfinite(rect.height());
}

// The whole image at a smaller size, averaged; kept, since a page is painted again and again.
QPixmap Reduced(const QImage& image, const QSize& size) {
    const QString key =
        QStringLiteral("sheetwright/%1/%2x%3").arg(image.cacheKey()).arg(size.width()).arg(size.height());
    QPixmap reduced;
    if (!QPixmapCache::find(key, &reduced)) {
        reduced = QPixmap::fromImage(image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        QPixmapCache::insert(key, reduced);
    }
    return reduced;
}

void PaintOnPixels(const Canvas& canvas, const QImage& image, const QRectF& target, const QRectF& pixels) {
    const double grid = canvas.Grid().perUnit;
    const double sx = target.width() * grid / pixels.width();
    const double sy = target.height() * grid / pixels.height();
    if (sx * kReducedALot > 1 && sy * kReducedALot > 1) {
        canvas.Painter().drawImage(target, image, pixels);
        return;
    }
    const QSize size(std::max(1, qRound(image.width() * std::min(sx, 1.0))),
                     std::max(1, qRound(image.height() * std::min(sy, 1.0))));
    const QRectF whole(QPointF(0, 0), QSizeF(image.size()));
    canvas.Painter().drawPixmap(target, Reduced(image, size),
                                Corresponding(pixels, whole, QRectF(QPointF(0, 0), QSizeF(size))));
}

}  // namespace

PicturePart PartOf(const Picture& picture, const QRectF& target, const QRectF& source) {
    if (!AreFinite(target) || !AreFinite(source) || target.isEmpty() || source.isEmpty()) return {};
    const QRectF there = source & QRectF(0, 0, picture.width, picture.height);
    if (there.isEmpty()) return {};
    if (there == source) return {target, source};
    return {Corresponding(there, source, target), there};
}

void PaintImage(Canvas& canvas, const Picture& picture, const QRectF& target, const QRectF& source) {
    const QImage& image = picture.image;
    const double scale = canvas.Scale();
    QRectF area(target.x() * scale, target.y() * scale, target.width() * scale, target.height() * scale);
    if (canvas.OnPixels()) area = canvas.Grid().Rounded(area);
    QRectF pixels = Corresponding(source, QRectF(0, 0, picture.width, picture.height),
                                  QRectF(QPointF(0, 0), QSizeF(image.size())));

    const QRectF near = canvas.Visible().adjusted(-kFarOff, -kFarOff, kFarOff, kFarOff);
    const QRectF part = area & near;
    if (image.isNull() || area.isEmpty() || part.isEmpty() || !area.intersects(canvas.Visible())) return;
    if (part != area) {
        pixels = Corresponding(part, area, pixels);
        area = part;
    }
    if (canvas.OnPixels()) return PaintOnPixels(canvas, image, area, pixels);
    canvas.Painter().setRenderHint(QPainter::LosslessImageRendering, !picture.isPhotograph);
    const bool isWhole = pixels.toAlignedRect() == image.rect() && pixels.width() > image.width() - 1e-6 &&
                         pixels.height() > image.height() - 1e-6;
    if (isWhole) {
        canvas.Painter().drawImage(area, image);
    } else {
        canvas.Painter().drawImage(area, image, pixels);
    }
}

}  // namespace sheetwright

#include "ui/page_painting.h"

#include "core/failure.h"
#include "document/document.h"
#include "print/canvas.h"
#include "print/fonts.h"
#include "print/form_surfaces.h"
#include "print/item_painter.h"
#include "ui/element_places.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace sheetwright {

namespace {

constexpr int kBytesPerPixel = 4;
// Lines are moved onto whole pixels, and letters reach over their outlines by one.
constexpr int kSpill = 2;
// More changes than these are painted in one.
constexpr std::size_t kMostParts = 16;
// A side of more pixels can't be told to a painter.
constexpr double kLongestSide = 1e6;

QImage NewImage(const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull()) throw Failure(failure::kOutOfMemory);
    return image;
}

QRectF UnionOf(const std::vector<QRectF>& parts) {
    QRectF all;
    for (const QRectF& part : parts)
        all |= part;
    return all;
}

QRectF Scaled(const QRectF& rect, double scale) {
    return {rect.x() * scale, rect.y() * scale, rect.width() * scale, rect.height() * scale};
}

// The pixels of the page that a part in twips touches.
QRect PixelsIn(const QRectF& part, double scale, const QSize& page) {
    const QRectF spilled = Scaled(part, scale).adjusted(-kSpill, -kSpill, kSpill, kSpill);
    return (spilled & QRectF(QPointF(0, 0), page)).toAlignedRect();
}

int Side(double twips, double scale) {
    return static_cast<int>(std::clamp(std::round(twips * scale), 0.0, kLongestSide));
}

}  // namespace

QSize PagePainting::PixelsOf(const frmSheetwright& document, double pixelsPerTwip) {
    const PictureSurface& page = document.surfaces->picForm;
    return {Side(page.Width(), pixelsPerTwip), Side(page.Height(), pixelsPerTwip)};
}

PagePainting::Look PagePainting::LookAt(double pixelsPerTwip) const {
    const PictureSurface& page = m_document.surfaces->picForm;
    return {pixelsPerTwip, PixelsOf(m_document, pixelsPerTwip), page.BackColor,
            page.Recorded().Items().size()};
}

void PagePainting::ForgetAll() {
    m_elements.ForgetAll();
    m_image = QImage();
}

QRectF PagePainting::Forget(ElementRef element) {
    m_elements.Forget(element);
    return m_elements.Reach(element) | RectOf(PlaceOf(*m_document.page, element));
}

QRectF PagePainting::Refresh() {
    const std::vector<QRectF> changed = m_elements.Refresh();
    m_changed.insert(m_changed.end(), changed.begin(), changed.end());
    if (m_changed.size() > kMostParts) m_changed = {UnionOf(m_changed)};
    return UnionOf(changed);
}

void PagePainting::Draw(QImage& image, QPoint corner, const QRect& part, double scale) const {
    QPainter painter(&image);
    painter.translate(-corner);
    painter.setClipRect(part);
    const PictureSurface& page = m_document.surfaces->picForm;
    painter.fillRect(part, ColourOf(page.BackColor));

    ItemPainter items(painter, FontsOf(m_document.application), scale, ItemPainter::Surface::Pixels);
    items.Paint(page.Recorded());
    const QRectF seen = QRectF(part).adjusted(-kSpill, -kSpill, kSpill, kSpill);
    for (const ElementKind kind : kPaintOrder)
        for (const ElementRecordings::Drawn& drawn : m_elements.Of(kind))
            if (drawn.recording && Scaled(drawn.reach, scale).intersects(seen)) items.Paint(*drawn.recording);
}

void PagePainting::BringUpToDate(const Look& look) {
    if (m_image.isNull() || look != m_look) {
        m_image = QImage();
        QImage image = NewImage(look.size);
        Draw(image, {}, image.rect(), look.scale);
        m_image = std::move(image);
        m_look = look;
    } else {
        for (const QRectF& part : m_changed)
            Draw(m_image, {}, PixelsIn(part, look.scale, look.size), look.scale);
    }
    m_changed.clear();
}

void PagePainting::Paint(QPainter& painter, const QRect& part, double pixelsPerTwip) {
    Refresh();
    const Look look = LookAt(pixelsPerTwip);
    const QRect shown = part & QRect(QPoint(0, 0), look.size);
    if (shown.isEmpty()) return;
    const double bytes = static_cast<double>(look.size.width()) * look.size.height() * kBytesPerPixel;
    if (bytes <= kMostImageBytes) {
        BringUpToDate(look);
        painter.drawImage(shown.topLeft(), m_image, shown);
        return;
    }
    m_image = QImage();
    m_changed.clear();
    QImage piece = NewImage(shown.size());
    Draw(piece, shown.topLeft(), shown, pixelsPerTwip);
    painter.drawImage(shown.topLeft(), piece);
}

}  // namespace sheetwright

#include "ui/element_recordings.h"

#include "core/failure.h"
#include "document/document.h"
#include "document/page_drawing.h"
#include "print/fonts.h"
#include "print/form_surfaces.h"
#include "ui/element_places.h"

#include <cmath>
#include <utility>
#include <variant>

namespace sheetwright {

namespace {

QRectF Between(double x1, double y1, double x2, double y2, double margin) {
    return QRectF(QPointF(x1, y1), QPointF(x2, y2)).normalized().adjusted(-margin, -margin, margin, margin);
}

struct Reaching {
    const Fonts& fonts;

    QRectF operator()(const DrawnLine& line) const {
        return Between(line.x1, line.y1, line.x2, line.y2, line.pen.width);
    }
    QRectF operator()(const DrawnBox& box) const {
        return Between(box.x1, box.y1, box.x2, box.y2, box.pen.width);
    }
    QRectF operator()(const DrawnEllipse& ellipse) const {
        return Between(ellipse.cx - ellipse.rx, ellipse.cy - ellipse.ry, ellipse.cx + ellipse.rx,
                       ellipse.cy + ellipse.ry, ellipse.pen.width);
    }
    // Slanted letters stand out of their width.
    QRectF operator()(const DrawnText& text) const {
        const double height = fonts.LineHeight(text.font);
        return Between(text.x, text.y, text.x + fonts.Width(text.font, text.text), text.y + height,
                       height / 2);
    }
    QRectF operator()(const DrawnPicture& drawn) const { return drawn.target; }
};

bool IsFinite(const QRectF& rect) {
    return std::isfinite(rect.left()) && std::isfinite(rect.top()) && std::isfinite(rect.width()) &&
           std::isfinite(rect.height());
}

using DrawElement = void (*)(frmSheetwright& document, int number, PictureSurface& surface);

DrawElement DrawingOf(ElementKind kind) {
    if (kind == ElementKind::Entry) return DrawEntry;
    return kind == ElementKind::Check ? DrawCheck : DrawBitmap;
}

}  // namespace

QRectF ReachOf(const Recording& recording, const Fonts& fonts) {
    QRectF reach;
    for (const DrawnItem& item : recording.Items())
        if (const QRectF part = std::visit(Reaching{fonts}, item); IsFinite(part)) reach |= part;
    return reach;
}

void ElementRecordings::ForgetAll() {
    m_isAllStale = true;
    m_stale.clear();
}

void ElementRecordings::Forget(ElementRef element) {
    if (m_isAllStale) return;
    Drawn* const drawn = Find(element);
    if (drawn != nullptr && !std::exchange(drawn->isStale, true)) m_stale.push_back(element);
}

ElementRecordings::Drawn* ElementRecordings::Find(ElementRef element) {
    std::vector<Drawn>& drawn = m_drawn[Index(element.kind)];
    const bool isThere = element.number >= 1 && static_cast<std::size_t>(element.number) <= drawn.size();
    return isThere ? &drawn[static_cast<std::size_t>(element.number) - 1] : nullptr;
}

ElementRecordings::Drawn ElementRecordings::Record(ElementRef element, PictureSurface& surface) const {
    surface.Cls();
    if (Catching([&] { DrawingOf(element.kind)(m_document, element.number, surface); })) return {};
    return {surface.Image().recording, ReachOf(surface.Recorded(), FontsOf(m_document.application))};
}

void ElementRecordings::RecordAll(PictureSurface& surface) {
    for (const ElementKind kind : kPaintOrder) {
        std::vector<Drawn>& drawn = m_drawn[Index(kind)];
        drawn.clear();
        for (int number = 1; number <= CountOf(*m_document.page, kind); ++number)
            drawn.push_back(Record({kind, number}, surface));
    }
}

std::vector<QRectF> ElementRecordings::Refresh() {
    const PictureSurface& page = m_document.surfaces->picForm;
    PictureSurface surface(FontsOf(m_document.application), page.Width(), page.Height());
    if (std::exchange(m_isAllStale, false)) {
        RecordAll(surface);
        return {QRectF(0, 0, page.Width(), page.Height())};
    }
    std::vector<QRectF> changed;
    for (const ElementRef& element : std::exchange(m_stale, {})) {
        Drawn& old = *Find(element);
        Drawn recorded = Record(element, surface);
        changed.push_back(old.reach | recorded.reach);
        old = std::move(recorded);
    }
    return changed;
}

QRectF ElementRecordings::Reach(ElementRef element) {
    const Drawn* const drawn = Find(element);
    return drawn == nullptr ? QRectF() : drawn->reach;
}

}  // namespace sheetwright

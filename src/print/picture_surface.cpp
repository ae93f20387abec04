#include "print/picture_surface.h"

#include "core/failure.h"
#include "print/canvas.h"
#include "print/fonts.h"
#include "print/item_painter.h"
#include "print/units.h"

#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace sheetwright {

namespace {

constexpr double kInchesPerMetre = 1 / 0.0254;
constexpr double kMostDotsPerMetre = 1e9;

double CheckedExtent(double twips) {
    if (!(twips >= 0) || !std::isfinite(twips)) throw Failure(failure::kInvalidProperty);
    return twips;
}

ItemPainter::Surface SurfaceOf(const QPainter& painter) {
    const QPaintEngine* const engine = painter.paintEngine();
    const bool isRecorded = engine == nullptr || engine->type() == QPaintEngine::Pdf ||
                            engine->type() == QPaintEngine::Picture || engine->type() == QPaintEngine::SVG;
    return isRecorded ? ItemPainter::Surface::Vector : ItemPainter::Surface::Pixels;
}

}  // namespace

PictureSurface::PictureSurface(const Fonts& fonts, double width, double height)
    : Device(fonts), m_fonts(fonts), m_width(CheckedExtent(width)), m_height(CheckedExtent(height)) {}

void PictureSurface::SetWidth(double twips) {
    m_width = CheckedExtent(twips);
}

void PictureSurface::SetHeight(double twips) {
    m_height = CheckedExtent(twips);
}

void PictureSurface::Draw(DrawnItem item) {
    if (m_recording.use_count() > 1) m_recording = std::make_shared<Recording>(*m_recording);
    m_recording->Add(std::move(item));
}

Picture PictureSurface::Image() const {
    Picture picture;
    picture.width = m_width;
    picture.height = m_height;
    if (!m_recording->IsEmpty()) picture.recording = m_recording;
    return picture;
}

QImage PictureSurface::Render(double dotsPerInch) const {
    if (!(dotsPerInch > 0) || !std::isfinite(dotsPerInch)) throw Failure(failure::kOverflow);
    const double scale = dotsPerInch / kTwipsPerInch;
    const double width = std::max(1.0, std::round(m_width * scale));
    const double height = std::max(1.0, std::round(m_height * scale));
    if (!(width * height <= kMostPixels)) throw Failure(failure::kOutOfMemory);

    QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
    if (image.isNull()) throw Failure(failure::kOutOfMemory);
    const int dotsPerMetre = qRound(std::min(dotsPerInch * kInchesPerMetre, kMostDotsPerMetre));
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    image.fill(ColourOf(BackColor));
    QPainter painter(&image);
    ItemPainter(painter, m_fonts, scale, ItemPainter::Surface::Pixels).Paint(*m_recording);
    return image;
}

void PictureSurface::Replay(QPainter& painter, double pixelsPerTwip) const {
    painter.save();
    ItemPainter(painter, m_fonts, pixelsPerTwip, SurfaceOf(painter)).Paint(*m_recording);
    painter.restore();
}

}  // namespace sheetwright

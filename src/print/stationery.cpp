#include "print/stationery.h"

#include "core/failure.h"
#include "print/device.h"
#include "print/print_state.h"
#include "print/units.h"

#include <cmath>
#include <utility>

namespace sheetwright {

namespace {

constexpr float kUprightA4 = 1.41F;  // height over width, cut to two decimals
constexpr double kA4Inches = 11.7;   // height
constexpr double kResolutionStep = 50;
constexpr std::int16_t kUsualResolution = 200;

// In single precision all through: 1.41 itself must come out as 1.41, which in double precision it doesn't.
float CutToTwoDecimals(float number) {
    return std::floor(number * 100.0F) / 100.0F;
}

}  // namespace

PrePrinted::PrePrinted(const PrintState& state, std::function<const ScaleForm*()> activeForm,
                       std::function<Picture(const QString&)> load)
    : m_state(state), m_activeForm(std::move(activeForm)), m_load(std::move(load)) {}

void PrePrinted::setScaleForm(const ScaleForm& form) {
    m_scaleForm = &form;
}

void PrePrinted::RequireImage() const {
    if (m_background.IsEmpty() || m_scaleForm == nullptr) throw Failure(failure::kObjectNotSet);
}

double PrePrinted::imageHeight() {
    RequireImage();
    m_imageHeight = m_scaleForm->ScaleY(m_background.height);
    return m_imageHeight;
}

double PrePrinted::imageWidth() {
    RequireImage();
    m_imageWidth = m_scaleForm->ScaleX(m_background.width);
    return m_imageWidth;
}

void PrePrinted::setBackground(const QString& path) {
    static_cast<void>(Catching([&] { setBackground(m_load(path)); }));
    if (imageDPI != 0) return;
    Ignoring([&] { DetectResolution(); });
    if (imageDPI == 0) imageDPI = kUsualResolution;
}

void PrePrinted::setBackground(const Picture& picture) {
    m_background = picture;
    if (const ScaleForm* const active = m_activeForm()) m_scaleForm = active;
}

// Only an upright A4 scan is known by its proportion; one lying on its side has another.
void PrePrinted::DetectResolution() {
    const double width = imageWidth();
    const double height = imageHeight();
    if (CutToTwoDecimals(static_cast<float>(Quotient(height, width))) != kUprightA4) return;
    const double exact = height / m_state.ScreenTwipsPerPixelY / kA4Inches;
    imageDPI = ToInt16(std::floor(exact / kResolutionStep + 0.5) * kResolutionStep);
}

QStringView StationeryField(QStringView value, int number) {
    for (; number > 1; --number) {
        const qsizetype bar = value.indexOf(u'|');
        if (bar < 0) return {};
        value = value.sliced(bar + 1);
    }
    const qsizetype end = value.indexOf(u'|');
    return end < 0 ? value : value.first(end);
}

void PaintBackground(PrePrinted& stationery, const PrintState& state, Device& picForm) {
    const Picture background = stationery.Background();
    if (background.IsEmpty()) return;
    const double sx = Quotient(kTwipsPerInch / state.ScreenTwipsPerPixelX, stationery.imageDPI);
    const double sy = Quotient(kTwipsPerInch / state.ScreenTwipsPerPixelY, stationery.imageDPI);
    const double width = stationery.imageWidth();
    const double height = stationery.imageHeight();
    picForm.PaintPicture(background, stationery.screenXAdjust, stationery.screenYAdjust, width * sx,
                         height * sy, 0, 0, width, height);
}

}  // namespace sheetwright

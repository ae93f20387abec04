#pragma once

// A surface that keeps what is drawn on it, so that it can be drawn again at any size or become an image. The
// page on screen, the preview and the hidden surfaces on which pictures are put together are such surfaces.

#include "print/device.h"
#include "print/units.h"

#include <QImage>

#include <memory>

class QPainter;

namespace sheetwright {

class Fonts;

class PictureSurface : public Device {
  public:
    // Sizes in twips. `fonts` lives longer than the surface.
    explicit PictureSurface(const Fonts& fonts, double width = 0, double height = 0);

    [[nodiscard]] double Width() const override { return m_width; }
    [[nodiscard]] double Height() const override { return m_height; }
    void SetWidth(double twips) override;
    void SetHeight(double twips) override;
    [[nodiscard]] double TwipsPerPixelX() const override { return kTwipsPerScreenPixel; }
    [[nodiscard]] double TwipsPerPixelY() const override { return kTwipsPerScreenPixel; }

    // Where the surface stands on its parent, in twips.
    double Left = 0;
    double Top = 0;
    bool Visible = true;
    Colour BackColor = 0xFFFFFF;  // shown by `Render` only

    void Cls() { m_recording = std::make_shared<Recording>(); }
    [[nodiscard]] const Recording& Recorded() const { return *m_recording; }
    // What is drawn so far as a picture of the surface's size, without its background; empty while nothing is
    // drawn. Shares the drawing until more is drawn here.
    [[nodiscard]] Picture Image() const;

    // The page as pixels on `BackColor`, marked with its resolution. Raises 6 for a resolution that is no
    // positive number and 7 for an image of more than kMostPixels.
    [[nodiscard]] QImage Render(double dotsPerInch) const;
    // Draws the page at the painter's origin, `pixelsPerTwip` units to the twip.
    void Replay(QPainter& painter, double pixelsPerTwip) const;

    static constexpr double kMostPixels = 250e6;

  protected:
    void Draw(DrawnItem item) override;

  private:
    const Fonts& m_fonts;
    double m_width;
    double m_height;
    std::shared_ptr<Recording> m_recording = std::make_shared<Recording>();
};

}  // namespace sheetwright

#pragma once

// A picture surface of 15 twips to the pixel that works with any metrics, real fonts or not.

#include "print/device.h"

#include <utility>

namespace sheetwright {

class RecordingSurface : public Device {
  public:
    // Sizes in twips; at first A4, upright. `metrics` lives longer.
    explicit RecordingSurface(const TextMetrics& metrics, double pageWidth = 11906, double pageHeight = 16838)
        : Device(metrics), m_width(pageWidth), m_height(pageHeight) {}

    Recording recording;

    [[nodiscard]] double Width() const override { return m_width; }
    [[nodiscard]] double Height() const override { return m_height; }
    void SetWidth(double twips) override { m_width = twips; }
    void SetHeight(double twips) override { m_height = twips; }
    [[nodiscard]] double TwipsPerPixelX() const override { return 15; }
    [[nodiscard]] double TwipsPerPixelY() const override { return 15; }

  protected:
    void Draw(DrawnItem item) override { recording.Add(std::move(item)); }

  private:
    double m_width;
    double m_height;
};

}  // namespace sheetwright

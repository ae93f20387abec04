#pragma once

// A page may be designed over a scan of the paper form on which it will be printed. The scan shows behind the
// fields on screen and is not printed, since the paper already carries it.

#include "print/picture_file.h"

#include <QString>
#include <QStringView>

#include <cstdint>
#include <functional>

namespace sheetwright {

class Device;
struct PrintState;

// The units in which a form measures: how many of them a twip of a picture has.
struct ScaleForm {
    double unitsPerTwipX = 1;
    double unitsPerTwipY = 1;
    [[nodiscard]] double ScaleX(double twips) const { return twips * unitsPerTwipX; }
    [[nodiscard]] double ScaleY(double twips) const { return twips * unitsPerTwipY; }
};

// One background image with its resolution and its adjusts, in twips. Members in the order in which they are
// known outside.
class PrePrinted {
  public:
    // `activeForm` tells the form that has the focus; it becomes the scale form whenever the background is
    // set. With none the scale form stays. `load` is where images come from.
    PrePrinted(const PrintState& state, std::function<const ScaleForm*()> activeForm,
               std::function<Picture(const QString&)> load = LoadPicture);

    void setScaleForm(const ScaleForm& form);
    // Of the image, in units of the scale form. Raise 91 while there is no image or no scale form.
    [[nodiscard]] double imageHeight();
    void setImageHeight(double height) { m_imageHeight = height; }
    [[nodiscard]] double imageWidth();
    void setImageWidth(double width) { m_imageWidth = width; }
    std::int16_t imageDPI = 0;
    // Loads the image; one that can't be read leaves `Background` as it was, without a message. Finds out
    // `imageDPI` when that is 0: afterwards it never is.
    void setBackground(const QString& path);
    float printerYAdjust = 0;
    float printerXAdjust = 0;
    float screenYAdjust = 0;
    float screenXAdjust = 0;
    [[nodiscard]] const Picture& Background() const { return m_background; }
    void setBackground(const Picture& picture);

  private:
    void RequireImage() const;
    void DetectResolution();

    const PrintState& m_state;
    std::function<const ScaleForm*()> m_activeForm;
    std::function<Picture(const QString&)> m_load;
    const ScaleForm* m_scaleForm = nullptr;
    Picture m_background;
    double m_imageHeight = 0;
    double m_imageWidth = 0;
};

// The n-th field, from 1, of a stationery value: image | dots per inch | printer x | printer y | screen x |
// screen y, the last four in twips. "" past the last field.
[[nodiscard]] QStringView StationeryField(QStringView value, int number);

// Draws the image life-size on a page surface, whatever resolution its file claims; nothing without an image.
// Raises 11 when the resolution is 0.
void PaintBackground(PrePrinted& stationery, const PrintState& state, Device& picForm);

}  // namespace sheetwright

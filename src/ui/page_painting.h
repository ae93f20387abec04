#pragma once

// The page as physical pixels. As long as that costs little memory the whole page is kept as an image, so
// that scrolling only copies; larger ones are drawn as far as they are exposed.

#include "ui/element_recordings.h"

#include <QImage>
#include <QRect>

class QPainter;

namespace sheetwright {

class PagePainting {
  public:
    explicit PagePainting(frmSheetwright& document) : m_document(document), m_elements(document) {}

    // The elements or the painted layer are others.
    void ForgetAll();
    // One element looks otherwise. Returns what of the page is to be painted anew at least, in twips.
    QRectF Forget(ElementRef element);

    // Makes sure of how everything looks now. Returns what it draws otherwise than before, in twips: it may
    // be more than `Forget` could know.
    QRectF Refresh();

    // Paints a part of the page, in pixels of the page with `pixelsPerTwip`. The painter is not scaled and
    // has the page's corner as its origin. Raises 7.
    void Paint(QPainter& painter, const QRect& part, double pixelsPerTwip);

    // The page in whole pixels.
    [[nodiscard]] static QSize PixelsOf(const frmSheetwright& document, double pixelsPerTwip);

    static constexpr double kMostImageBytes = 64 << 20;

  private:
    // What an image of the page depends on beside the elements.
    struct Look {
        double scale = 0;
        QSize size;
        Colour backColor = 0;
        std::size_t items = 0;
        bool operator==(const Look&) const = default;
    };
    [[nodiscard]] Look LookAt(double pixelsPerTwip) const;
    void BringUpToDate(const Look& look);
    void Draw(QImage& image, QPoint corner, const QRect& part, double scale) const;

    frmSheetwright& m_document;
    ElementRecordings m_elements;
    std::vector<QRectF> m_changed;  // twips, in which the image isn't up to date
    Look m_look;
    QImage m_image;  // none while it isn't affordable
};

}  // namespace sheetwright

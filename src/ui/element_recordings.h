#pragma once

// How the elements of a page look, recorded once and drawn again until they change.

#include "document/element_array.h"
#include "print/recording.h"

#include <QRectF>

#include <array>
#include <memory>
#include <vector>

namespace sheetwright {

class Fonts;
class PictureSurface;
class frmSheetwright;

// What a recording draws on, in twips, or a little more. Items whose numbers are not finite count for
// nothing.
[[nodiscard]] QRectF ReachOf(const Recording& recording, const Fonts& fonts);

class ElementRecordings {
  public:
    struct Drawn {
        std::shared_ptr<const Recording> recording;  // none where there is nothing to draw
        QRectF reach;                                // twips: it may stand out of the element's place
        bool isStale = false;                        // the element is to be recorded again
    };

    explicit ElementRecordings(frmSheetwright& document) : m_document(document) {}

    // All elements, or one, look otherwise.
    void ForgetAll();
    void Forget(ElementRef element);

    // Records what looks otherwise. Returns where that was and now is. An element that can't be drawn is left
    // out.
    std::vector<QRectF> Refresh();

    // As recorded last.
    [[nodiscard]] const std::vector<Drawn>& Of(ElementKind kind) const { return m_drawn[Index(kind)]; }
    [[nodiscard]] QRectF Reach(ElementRef element);

  private:
    [[nodiscard]] static std::size_t Index(ElementKind kind) { return static_cast<std::size_t>(kind); }
    // None for an element that wasn't there when all were recorded.
    [[nodiscard]] Drawn* Find(ElementRef element);
    void RecordAll(PictureSurface& surface);
    [[nodiscard]] Drawn Record(ElementRef element, PictureSurface& surface) const;

    frmSheetwright& m_document;
    std::array<std::vector<Drawn>, 4> m_drawn;
    std::vector<ElementRef> m_stale;  // each once
    bool m_isAllStale = true;
};

}  // namespace sheetwright

#pragma once

// The picture box of a field control.

#include "fields/field_child.h"
#include "print/picture.h"

namespace sheetwright {

class PictureCache;
struct PrintState;

class PictureChild : public FieldChild {
  public:
    using FieldChild::FieldChild;

    [[nodiscard]] const Picture& Image() const { return m_image; }
    // Where the picture is drawn in the box, in twips: as large as its shape allows, centred. Empty when
    // there is none or it can't be fitted.
    [[nodiscard]] const Extent& Shown() const { return m_shown; }

    // The box is empty when that fails. Raises as LoadPicture.
    void Load(PictureCache& pictures, const QString& stored);
    void Clear();
    // To be called when the picture or `Place` has changed.
    void Scale(const PrintState& state);

  private:
    Picture m_image;
    Extent m_shown;
};

}  // namespace sheetwright

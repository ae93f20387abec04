#include "fields/picture_child.h"

#include "core/failure.h"
#include "print/picture_file.h"
#include "print/picture_fit.h"
#include "print/print_state.h"

namespace sheetwright {

void PictureChild::Load(PictureCache& pictures, const QString& stored) {
    Clear();
    m_image = pictures.Load(stored);
}

void PictureChild::Clear() {
    m_image = {};
    m_shown = {};
}

void PictureChild::Scale(const PrintState& state) {
    m_shown = {};
    if (m_image.IsEmpty()) return;
    Ignoring([&] {
        const Size size = Fitted({Place.width, Place.height}, NaturalSize(state, m_image));
        m_shown = {(Place.width - size.width) / 2, (Place.height - size.height) / 2, size.width, size.height};
    });
}

}  // namespace sheetwright

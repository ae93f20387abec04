#include "print/form_surfaces.h"

#include "print/fonts.h"

namespace sheetwright {

FormSurfaces::FormSurfaces(const Fonts& fonts)
    : picContainer(fonts), picForm(fonts), imgPiccy(fonts), picPicture(fonts) {}

}  // namespace sheetwright

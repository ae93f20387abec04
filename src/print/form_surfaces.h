#pragma once

// The hidden surfaces of a form, on which texts are measured and pictures are put together. None is ever
// shown for printing.

#include "print/picture_file.h"
#include "print/picture_surface.h"

namespace sheetwright {

class Fonts;

struct FormSurfaces {
    explicit FormSurfaces(const Fonts& fonts);

    Measurer picContainer;      // the measurer of all text
    PictureSurface picForm;     // the page canvas
    PictureSurface imgPiccy;    // takes the image of a fixed picture and sizes itself to it
    Picture imgPicture;         // the image of a picture field
    PictureSurface picPicture;  // on which a picture field's image is composed
    PictureCache pictures;
};

}  // namespace sheetwright

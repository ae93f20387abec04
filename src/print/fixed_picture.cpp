#include "print/element_pens.h"
#include "print/fixed_elements.h"
#include "print/form_surfaces.h"
#include "print/own_picture.h"
#include "print/primitives.h"

namespace sheetwright {

namespace {

// The surface shows the picture in its natural size.
void Show(PictureSurface& surface, const Picture& picture) {
    surface.SetWidth(picture.width);
    surface.SetHeight(picture.height);
    surface.PaintPicture(picture, 0, 0, picture.width, picture.height, 0, 0, picture.width, picture.height);
}

}  // namespace

void DrawPictureElement(const ElementDrawing& element) {
    FormDrawing& form = element.form;
    const PrintState& state = element.State();
    PictureSurface& surface = form.surfaces.imgPiccy;
    const auto record = element.As<PictureRecord>();

    double borderStyle = 0;
    element.Step([&] { borderStyle = record.BorderStyle(); });
    const bool isFramed = borderStyle == 1;
    if (isFramed) {
        SetFramePen(element);
        element.Step([&] {
            const Extent place = record.Place();
            if (element.isOnScreen) return DrawFrame(state, element.device, place);
            DrawBox(state, element.device, place.left, place.top, place.left + place.width,
                    place.top + place.height, Colour{0});
        });
    }

    surface.Cls();
    QString named;
    element.Step([&] { named = record.Picture(); });
    QString file;
    if (!named.isEmpty())
        element.Step(
            [&] { file = OwnPicture(form.surfaces.pictures, named, form.MyTempDir, form.FormFolder); });
    if (!file.isEmpty()) element.Step([&] { Show(surface, form.surfaces.pictures.Load(file)); });

    const double insideX = isFramed ? state.ScreenTwipsPerPixelX : 0;
    const double insideY = isFramed ? state.ScreenTwipsPerPixelY : 0;
    element.Step([&] {
        surface.Left = record.AbsLeft() + insideX;
        surface.Top = record.AbsTop() + insideY;
    });
    element.Step([&] {
        // The frame on screen is one pixel smaller than the one on paper, and must not be painted over.
        const double edgeX = state.ScreenTwipsPerPixelX + (element.isOnScreen ? insideX : 0);
        const double edgeY = state.ScreenTwipsPerPixelY + (element.isOnScreen ? insideY : 0);
        DrawBitmap(form.application, element.device, surface, record.Width() - edgeX,
                   record.Height() - edgeY);
    });
}

}  // namespace sheetwright

#include "apps/wmf/metafile_player.h"

#include "apps/wmf/metafile_bitmap.h"
#include "apps/wmf/metafile_canvas.h"

#include <libwmf/api.h>

#include <memory>
#include <unordered_map>
#include <utility>

namespace sheetwright {

namespace {

struct Playing {
    MetafileCanvas canvas;
    const QByteArray& metafile;
    std::unordered_map<const void*, std::unique_ptr<QImage>> bitmaps;  // in use by the player
};

Playing& Of(wmfAPI* api) {
    return *static_cast<Playing*>(api->device_data);
}

// A function of the player's table that calls a member of the canvas with what the player hands over.
template <auto Member, typename Item>
void Call(wmfAPI* api, Item* item) {
    (Of(api).canvas.*Member)(*item);
}

template <MetafileCanvas::ArcKind Kind>
void CallArc(wmfAPI* api, wmfDrawArc_t* arc) {
    Of(api).canvas.Arc(*arc, Kind);
}

template <typename... Item>
void Nothing(wmfAPI*, Item*...) {}

void ReadBitmap(wmfAPI* api, wmfBMP_Read_t* read) {
    const QByteArrayView all(Of(api).metafile);
    const bool isWithin = read->offset >= 0 && read->length >= 0 && read->length <= all.size() - read->offset;
    const QByteArrayView bytes = read->buffer != nullptr ? QByteArrayView(read->buffer, read->length)
                                 : isWithin              ? all.sliced(read->offset, read->length)
                                                         : QByteArrayView();
    auto image = std::make_unique<QImage>(DeviceIndependentBitmap(bytes));
    if (image->isNull() || image->width() > 0xFFFF || image->height() > 0xFFFF) return;
    read->bmp = {static_cast<U16>(image->width()), static_cast<U16>(image->height()), image.get()};
    Of(api).bitmaps.emplace(image.get(), std::move(image));
}

void DrawBitmap(wmfAPI* api, wmfBMP_Draw_t* drawn) {
    if (const auto* image = static_cast<const QImage*>(drawn->bmp.data)) Of(api).canvas.Image(*drawn, *image);
}

void FreeBitmap(wmfAPI* api, wmfBMP* bitmap) {
    Of(api).bitmaps.erase(bitmap->data);
    bitmap->data = nullptr;
}

// With a width of 0 the player leaves it to the canvas to centre a text or to set it to the right.
float NoWidth(wmfAPI*, wmfFont*, char*) {
    return 0;
}

void SetFunctions(wmfAPI* api) {
    using Canvas = MetafileCanvas;
    auto& table = *static_cast<wmfFunctionReference*>(api->function_reference);
    table = {.device_open = Nothing<>,
             .device_close = Nothing<>,
             .device_begin = Nothing<>,
             .device_end = Nothing<>,
             .flood_interior = Nothing,
             .flood_exterior = Nothing,
             .draw_pixel = Call<&Canvas::Pixel>,
             .draw_pie = CallArc<Canvas::ArcKind::Pie>,
             .draw_chord = CallArc<Canvas::ArcKind::Chord>,
             .draw_arc = CallArc<Canvas::ArcKind::Open>,
             .draw_ellipse = Call<&Canvas::Ellipse>,
             .draw_line = Call<&Canvas::Line>,
             .poly_line = Call<&Canvas::PolyLine>,
             .draw_polygon = Call<&Canvas::Polygon>,
             .draw_polypolygon = Call<&Canvas::PolyPolygon>,
             .draw_rectangle = Call<&Canvas::Rectangle>,
             .rop_draw = Call<&Canvas::FillRectangle>,
             .bmp_draw = DrawBitmap,
             .bmp_read = ReadBitmap,
             .bmp_free = FreeBitmap,
             .draw_text = Call<&Canvas::Text>,
             .udata_init = Nothing,
             .udata_copy = Nothing,
             .udata_set = Nothing,
             .udata_free = Nothing,
             .region_frame = Call<&Canvas::FrameRegion>,
             .region_paint = Call<&Canvas::PaintRegion>,
             .region_clip = Call<&Canvas::Clip>};
}

bool Play(wmfAPI* api, QByteArray& metafile) {
    auto* const bytes = reinterpret_cast<unsigned char*>(metafile.data());
    wmfD_Rect box{};
    if (wmf_mem_open(api, bytes, static_cast<long>(metafile.size())) != wmf_E_None) return false;
    if (wmf_scan(api, 0, &box) != wmf_E_None) return false;
    return wmf_play(api, 0, &box) == wmf_E_None;
}

}  // namespace

std::optional<QImage> DrawMetafile(QByteArray metafile, QSize pixels) {
    Playing playing{MetafileCanvas(pixels), metafile, {}};
    wmfFontData fonts{.map = Nothing, .stringwidth = NoWidth, .user_data = nullptr};
    wmfAPI_Options options{};
    options.function = SetFunctions;
    constexpr unsigned long kFlags =
        WMF_OPT_FUNCTION | WMF_OPT_IGNORE_NONFATAL | WMF_OPT_NO_ERROR | WMF_OPT_NO_DEBUG;
    wmfAPI* created = nullptr;
    if (wmf_lite_create(&created, kFlags, &options) != wmf_E_None) return std::nullopt;
    const std::unique_ptr<wmfAPI, decltype(&wmf_lite_destroy)> api(created, wmf_lite_destroy);
    api->device_data = &playing;
    api->font_data = &fonts;
    if (!Play(api.get(), metafile)) return std::nullopt;
    return playing.canvas.Finish();
}

}  // namespace sheetwright

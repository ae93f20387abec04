#pragma once

// The pens and texts that fixed elements and fields share. Pen widths are told in screen pixels: on paper
// they are as wide as on screen, so they need the ratio of the two.

#include "document/design_records.h"
#include "print/device.h"
#include "print/font_spec.h"
#include "print/print_state.h"
#include "print/text_box.h"

#include <utility>

namespace sheetwright {

// How wide a pen of one screen pixel is, in pixels of the device; may be a fraction.
[[nodiscard]] double ScreenPixelPen(const PrintState& state, const Device& device);

// The pen of frames: one screen pixel, solid, without fill. `run` takes each statement and decides what its
// failure means.
template <typename Run>
void SetFramePen(const PrintState& state, Device& device, Run&& run) {
    run([&] { device.SetDrawWidth(1); });
    if (IsPrinter(state, device)) run([&] { device.SetDrawWidth(ScreenPixelPen(state, device)); });
    run([&] { device.SetDrawStyle(0); });
    device.SetFillStyle(1);
}

// A run in which every failure travels.
struct Unguarded {
    template <typename Step>
    void operator()(Step&& step) const {
        std::forward<Step>(step)();
    }
};

// A box one screen pixel smaller on the right and at the bottom than `place`: what a control on screen shows.
void DrawFrame(const PrintState& state, Device& device, const Extent& place);

// The rule under a text, 30 twips above the bottom edge of `place`. `mode` as for `DrawLine`.
void DrawRule(const PrintState& state, Device& device, const Extent& place, QStringView mode = {});

// What text boxes are drawn with. Raise 5 for missing keys; places past 16 bits raise 6.
[[nodiscard]] FontSpec PaintedFont(const TextRecord& record);
[[nodiscard]] TextBox TextBoxOf(const RecordView& record);

}  // namespace sheetwright

#pragma once

// The process-wide values of the drawing layer. They are kept between print jobs.

#include <cstdint>
#include <memory>
#include <optional>

namespace sheetwright {

class Fonts;
class Printers;

// The label printing offsets, in twips: they act on texts on a printer alone.
struct LabelOffsets {
    double x = 0;
    double y = 0;
};

struct PrintState {
    std::int16_t AlignmentMode = 0;  // of the next text box: 1 right, 2 centre, anything else left
    // Added to every x and y on the page, in twips; on a printer to the start of a text, too. Nothing sets
    // them back at the end of a job.
    float PrintXAdjust = 0;
    float PrintYAdjust = 0;

    // As they were when the job began that is running; none outside a job.
    std::optional<LabelOffsets> labelOffsets;

    // Steps of drawing that failed, were logged and left out, since the program began.
    std::int64_t lostSteps = 0;

    // The virtual screen on which all layout is made, whatever the real monitor: 96 dots per inch.
    double ScreenTwipsPerPixelX = 15;
    double ScreenTwipsPerPixelY = 15;

    Printers* printers = nullptr;  // the installed printers, not owned; none where there is no spooler

    std::shared_ptr<Fonts> fonts;  // made on first use by `FontsOf`
};

}  // namespace sheetwright

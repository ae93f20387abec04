#pragma once

// Texts in boxes: wrapped with the metrics of the screen and only then drawn, so that a form breaks its lines
// on paper where it breaks them on screen.

#include "print/recording.h"
#include "print/text_wrapping.h"

#include <QString>

#include <cstdint>

namespace sheetwright {

class Application;
class Device;
class Measurer;
struct FontSpec;
struct LabelOffsets;
struct PrintState;

struct TextBox {
    std::int16_t top = 0;  // twips on the page
    std::int16_t left = 0;
    std::int16_t height = 0;
    std::int16_t width = 0;
};

// The user's label printing offsets from the settings.
[[nodiscard]] LabelOffsets ReadLabelOffsets(const Application& application);

// Draws `text` in `font`, aligned by `AlignmentMode`, three screen pixels down and one to the right inside
// its box. A box that overruns the page prints no text at all; lines that don't fit are dropped; text is
// never shrunk. Raises 380 for a font size that can't be, 6 for a place past 16 bits, 11 for a line without
// height.
void DrawTextBox(Application& application, Device& device, Measurer& measurer, const QString& text,
                 const FontSpec& font, Colour colour, TextBox box);

enum class LineBreaks {
    Wrapped,  // wherever the text must break to fit
    AsTyped,  // only where it has breaks; what doesn't fit a line is cut off
};

// As DrawTextBox, but lets no messages run: a window that is being painted must not be painted again
// meanwhile.
void DrawTextInBox(const Application& application, Device& device, Measurer& measurer, const QString& text,
                   const FontSpec& font, Colour colour, TextBox box, LineBreaks breaks);

// Prints the wrapped text from the device's text position down, as many lines as `height` holds, one at
// least.
void WrapText(const PrintState& state, Device& device, const Measurer& measurer, const QString& text,
              double width, double height);

}  // namespace sheetwright

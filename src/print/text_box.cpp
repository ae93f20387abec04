#include "print/text_box.h"

#include "core/application.h"
#include "core/failure.h"
#include "formula/value_conversion.h"
#include "print/device.h"
#include "print/print_state.h"

#include <QStringView>

#include <cmath>

namespace sheetwright {

namespace {

constexpr int kPixelsAbove = 3;
constexpr int kPixelsBefore = 1;
constexpr double kRaise = 45;     // twips that a text stands higher on a picture surface
constexpr int kMostMissing = 30;  // twips that the last line on a picture surface may lack
constexpr int kTransparentBackground = 1;

constexpr std::int16_t kRight = 1;
constexpr std::int16_t kCentre = 2;

struct TextStart {
    std::int16_t left;
    std::int16_t top;
};

double ReadOffset(const Application& application, const QString& key) {
    const QString text =
        application.settings.Read(application.Title, QStringLiteral("frmPrefs"), key, QStringLiteral("0"));
    return ToNumber(text, application.conventions);
}

TextStart StartOf(const Application& application, const Device& device, TextBox box) {
    const PrintState& state = application.printing;
    TextStart start{ToInt16(box.left + state.ScreenTwipsPerPixelX * kPixelsBefore),
                    ToInt16(box.top + state.ScreenTwipsPerPixelY * kPixelsAbove)};
    if (!IsPrinter(state, device)) return start;
    const LabelOffsets offsets = state.labelOffsets ? *state.labelOffsets : ReadLabelOffsets(application);
    start.top = ToInt16(start.top + offsets.y + state.PrintYAdjust);
    start.left = ToInt16(start.left + offsets.x + state.PrintXAdjust);
    return start;
}

void SetFamilyOrStandIn(Device& device, const QString& family) {
    if (Ignoring([&] { device.SetFontName(family); })) {
        Ignoring([&] { device.SetFontName(QStringLiteral("Arial")); });
    } else if (device.FontName() != family) {
        // Naming another font in between resets the surface's choice of a substitute.
        Ignoring([&] { device.SetFontName(QStringLiteral("Courier New")); });
        Ignoring([&] { device.SetFontName(family); });
    }
}

// A surface may give a larger size than it is asked for: then smaller ones are asked for until the one it
// gives is not too large.
void SetSizeAtMost(Measurer& measurer, double points) {
    constexpr double kSmallest = 5;
    constexpr int kStepsPerPoint = 100;
    measurer.SetFontSize(points);
    for (int step = 0; measurer.FontSize() > points; ++step) {
        const double size = points - static_cast<double>(step) / kStepsPerPoint;
        if (size < kSmallest) return;
        measurer.SetFontSize(size);
    }
}

void SetStyles(Measurer& measurer, const FontSpec& font) {
    measurer.SetFontBold(font.bold);
    measurer.SetFontItalic(font.italic);
    measurer.SetFontUnderline(font.underline);
    measurer.SetFontStrikethru(font.strikethru);
}

void SetFonts(Device& device, Measurer& measurer, const FontSpec& font) {
    SetFamilyOrStandIn(device, font.family);
    SetSizeAtMost(device, font.size);
    SetStyles(device, font);
    if (&measurer == &device) return;
    Ignoring([&] { measurer.SetFontName(font.family); });
    SetSizeAtMost(measurer, font.size);
    SetStyles(measurer, font);
}

bool IsOnPage(const Device& device, TextBox box) {
    return box.left + box.width <= device.Width() && box.top + box.height <= device.Height();
}

// The lines of a wrapped text, one after the other.
class LineCutter {
  public:
    explicit LineCutter(QStringView text) : m_rest(text) {}

    [[nodiscard]] QStringView Rest() const { return m_rest; }

    // Takes the line up to the next CR LF; without any, up to the next CR. False without a break.
    bool Take(QStringView& line) {
        const qsizetype pair = m_hasPairs ? m_rest.indexOf(u"\r\n") : -1;
        m_hasPairs = pair >= 0;
        const qsizetype end = m_hasPairs ? pair : m_rest.indexOf(u'\r');
        if (end < 0) return false;
        line = m_rest.first(end);
        m_rest = m_rest.sliced(end + (m_hasPairs ? 2 : 1));
        return true;
    }

  private:
    QStringView m_rest;
    bool m_hasPairs = true;
};

int MostLines(const PrintState& state, const Device& device, double height) {
    const std::int16_t lineHeight = ToInt16(device.TextHeight(u"L"));
    if (lineHeight == 0) throw Failure(failure::kDivisionByZero);
    std::int32_t lines = ToInt32(std::trunc(height / lineHeight));
    const std::int32_t missing = lineHeight - ToInt32(height) % lineHeight;
    const bool mayLack = InstalledPrinter(state) != nullptr && !IsPrinter(state, device);
    if (mayLack && missing <= kMostMissing) ++lines;
    return lines == 0 ? 1 : lines;
}

// Prints lines from the device's text position down, each aligned in the box.
class LinePrinter {
  public:
    LinePrinter(const PrintState& state, Device& device, const Measurer& measurer, double width)
        : m_alignment(state.AlignmentMode),
          m_device(device),
          m_measurer(measurer),
          m_width(width),
          m_startX(ToInt16(device.CurrentX)) {}

    void Print(QStringView line) {
        if (m_alignment == kRight) m_device.CurrentX += Room(line);
        if (m_alignment == kCentre) m_device.CurrentX += Room(line) / 2;
        m_device.Print(line.toString());
        m_device.CurrentX = m_startX;
    }

  private:
    [[nodiscard]] double Room(QStringView line) const { return m_width - m_measurer.TextWidth(line); }

    std::int16_t m_alignment;
    Device& m_device;
    const Measurer& m_measurer;
    double m_width;
    std::int16_t m_startX;
};

template <typename Print>
void PrintLines(const QString& text, int mostLines, const Print& print) {
    LineCutter lines(text);
    QStringView line;
    int number = 1;
    for (; number <= mostLines && lines.Take(line); ++number)
        print(line);
    if (number <= mostLines && !lines.Rest().isEmpty()) print(lines.Rest());
}

}  // namespace

LabelOffsets ReadLabelOffsets(const Application& application) {
    return {ReadOffset(application, QStringLiteral("XOffset")),
            ReadOffset(application, QStringLiteral("YOffset"))};
}

void DrawTextBox(Application& application, Device& device, Measurer& measurer, const QString& text,
                 const FontSpec& font, Colour colour, TextBox box) {
    DrawTextInBox(application, device, measurer, text, font, colour, box, LineBreaks::Wrapped);
    application.ui.PumpMessages();
}

void DrawTextInBox(const Application& application, Device& device, Measurer& measurer, const QString& text,
                   const FontSpec& font, Colour colour, TextBox box, LineBreaks breaks) {
    const PrintState& state = application.printing;
    const TextStart start = StartOf(application, device, box);
    SetFonts(device, measurer, font);
    device.SetForeColor(colour);
    device.CurrentX = start.left;
    device.CurrentY = start.top;
    device.FontTransparent = true;
    device.SetBkMode(kTransparentBackground);
    if (!IsOnPage(device, box)) return;
    if (InstalledPrinter(state) != nullptr && !IsPrinter(state, device)) device.CurrentY = start.top - kRaise;
    if (breaks == LineBreaks::Wrapped) return WrapText(state, device, measurer, text, box.width, box.height);
    LinePrinter printer(state, device, measurer, box.width);
    if (!text.isEmpty())
        PrintLines(text, MostLines(state, device, box.height),
                   [&](QStringView line) { printer.Print(line.first(measurer.Fitting(line, box.width))); });
}

void WrapText(const PrintState& state, Device& device, const Measurer& measurer, const QString& text,
              double width, double height) {
    LinePrinter printer(state, device, measurer, width);
    if (text.isEmpty()) return;
    const QString wrapped = WrappedText(measurer, text, width);
    PrintLines(wrapped, MostLines(state, device, height), [&](QStringView line) { printer.Print(line); });
}

}  // namespace sheetwright

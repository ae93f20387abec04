#pragma once

// The surface that a form is drawn on: a picture or a printer. All positions and sizes are twips from the top
// left corner of the page. The names are those under which the drawing rules know them.

#include "print/font_spec.h"
#include "print/recording.h"
#include "print/text_metrics.h"

#include <QString>
#include <QStringView>

#include <cstdint>

namespace sheetwright {

struct PrintState;

// A surface as far as texts are measured on it.
class Measurer {
  public:
    // `metrics` lives longer than this object.
    explicit Measurer(const TextMetrics& metrics) : m_metrics(metrics) {}
    Measurer(const Measurer&) = delete;
    Measurer& operator=(const Measurer&) = delete;
    virtual ~Measurer() = default;

    // What the surface really has: a name or size may come out other than it was asked for.
    [[nodiscard]] virtual QString FontName() const { return m_font.family; }
    [[nodiscard]] virtual double FontSize() const { return m_font.size; }
    // A family that can't be had is measured as what stands in for it.
    virtual void SetFontName(const QString& family);
    // In points. Raises 380 unless above 0 and at most 2160; the old size stays.
    virtual void SetFontSize(double points);

    [[nodiscard]] bool FontBold() const { return m_font.bold; }
    [[nodiscard]] bool FontItalic() const { return m_font.italic; }
    [[nodiscard]] bool FontUnderline() const { return m_font.underline; }
    [[nodiscard]] bool FontStrikethru() const { return m_font.strikethru; }
    void SetFontBold(bool on) { m_font.bold = on; }
    void SetFontItalic(bool on) { m_font.italic = on; }
    void SetFontUnderline(bool on) { m_font.underline = on; }
    void SetFontStrikethru(bool on) { m_font.strikethru = on; }

    // In twips, in the current font.
    [[nodiscard]] double TextWidth(QStringView text) const { return m_metrics.Width(m_font, text); }
    [[nodiscard]] double TextHeight(QStringView text) const;
    // See TextMetrics::Fitting.
    [[nodiscard]] qsizetype Fitting(QStringView text, double width) const {
        return m_metrics.Fitting(m_font, text, width);
    }

  protected:
    [[nodiscard]] const FontSpec& Font() const { return m_font; }
    [[nodiscard]] const TextMetrics& Metrics() const { return m_metrics; }

  private:
    const TextMetrics& m_metrics;
    FontSpec m_font{QStringLiteral("Arial")};
};

// Keeps pen, fill, colour and text position, checks what they are set to, and turns each call into one item.
class Device : public Measurer {
  public:
    using Measurer::Measurer;

    // Raises 380 for a family that can't be had; the old one stays.
    void SetFontName(const QString& family) override;

    // Of the page. Setting raises 380 on a surface whose size is the paper's, and for sizes below 0.
    [[nodiscard]] virtual double Width() const = 0;
    [[nodiscard]] virtual double Height() const = 0;
    virtual void SetWidth(double twips);
    virtual void SetHeight(double twips);

    // A number that tells surfaces apart.
    [[nodiscard]] qintptr hdc() const { return reinterpret_cast<qintptr>(this); }
    [[nodiscard]] virtual double TwipsPerPixelX() const = 0;
    [[nodiscard]] virtual double TwipsPerPixelY() const = 0;
    // 112 and 113: the unprintable margin on the left and at the top, in device pixels.
    [[nodiscard]] virtual int GetDeviceCaps(int index) const;
    // Raises 438 on a surface that is no printer.
    [[nodiscard]] virtual QString DriverName() const;

    double CurrentX = 0;  // where the next text begins
    double CurrentY = 0;
    bool FontTransparent = true;  // kept only: texts never have a background

    // In pixels of the surface, a fraction rounded. Raises 380 below 1 and 6 past 16 bits.
    [[nodiscard]] std::int16_t DrawWidth() const { return m_drawWidth; }
    void SetDrawWidth(double pixels);
    // Raises 380 unless 0 to 6.
    [[nodiscard]] std::int16_t DrawStyle() const { return m_drawStyle; }
    void SetDrawStyle(std::int16_t style);
    // Any number is taken; those that mean nothing fill nothing.
    [[nodiscard]] std::int16_t FillStyle() const { return m_fill.style; }
    void SetFillStyle(std::int16_t style) { m_fill.style = style; }
    [[nodiscard]] Colour FillColor() const { return m_fill.colour; }
    void SetFillColor(Colour colour) { m_fill.colour = colour; }
    [[nodiscard]] Colour ForeColor() const { return m_foreColor; }
    void SetForeColor(Colour colour) { m_foreColor = colour; }
    [[nodiscard]] int BkMode() const { return m_bkMode; }
    void SetBkMode(int mode) { m_bkMode = mode; }

    // Draws at the text position in `ForeColor`; then `CurrentY` has moved down by one line and `CurrentX` is
    // 0. An empty text draws nothing, but opens a printer's document.
    void Print(const QString& text);
    // `mode` "B": a box, filled by `FillStyle` and `FillColor`; "BF": a box filled with `colour`; any other:
    // a line.
    void Line(double x1, double y1, double x2, double y2, Colour colour, QStringView mode = {});
    // `aspect` is height over width: below 1 `radius` is the horizontal half axis, above 1 the vertical one.
    // Raises 5 for a negative radius or aspect.
    void Circle(double cx, double cy, double radius, Colour colour, double aspect);
    // Draws the part (sx, sy, sw, sh) of a picture, in twips of its natural size, scaled into (x, y, w, h).
    // An empty picture draws nothing.
    virtual void PaintPicture(const Picture& picture, double x, double y, double w, double h, double sx,
                              double sy, double sw, double sh);

  protected:
    // Receives every item; for a printer the first one opens the document.
    virtual void Draw(DrawnItem item) = 0;
    // Output begins here although nothing is drawn.
    virtual void Touch() {}

  private:
    [[nodiscard]] Pen PenIn(Colour colour) const;

    std::int16_t m_drawWidth = 1;
    std::int16_t m_drawStyle = 0;
    Fill m_fill;
    Colour m_foreColor = 0;
    int m_bkMode = 1;
};

namespace orientation {
inline constexpr std::int16_t kPortrait = 1;
inline constexpr std::int16_t kLandscape = 2;
}  // namespace orientation

// Sends documents to a spooler, one after the other. A document opens with the first output after the last
// one ended; orientation and paper hold for the documents that open after they are set.
class Printer : public Device {
  public:
    using Device::Device;

    // Sends the open document; without one it does nothing. Raises 57 or what else the spooler says.
    virtual void EndDoc() = 0;
    // Raises 380 for a number that is no orientation.
    [[nodiscard]] virtual std::int16_t Orientation() const = 0;
    virtual void SetOrientation(std::int16_t orientation) = 0;
    // A printer's paper code. Raises 380 for one that the printer doesn't have.
    [[nodiscard]] virtual std::int16_t PaperSize() const = 0;
    virtual void SetPaperSize(std::int16_t code) = 0;
    [[nodiscard]] QString DriverName() const override = 0;
};

// The printers of this machine, and the one that jobs go to.
class Printers {
  public:
    Printers() = default;
    Printers(const Printers&) = delete;
    Printers& operator=(const Printers&) = delete;
    virtual ~Printers() = default;

    [[nodiscard]] virtual int Count() const = 0;
    // The process-wide `Printer`. Raises 482 when none is installed.
    [[nodiscard]] virtual class Printer& Printer() = 0;
    // From now on `Printer` is the system's default printer.
    virtual void FollowDefault() = 0;
};

// The process-wide printer, or none where no printer is installed.
[[nodiscard]] Printer* InstalledPrinter(const PrintState& state);

// The test by which every routine tells paper from a picture surface. With no printer installed every surface
// is a picture surface.
[[nodiscard]] bool IsPrinter(const PrintState& state, const Device& device);

}  // namespace sheetwright

#pragma once

// A printer without paper: it keeps the documents that were sent to it as recordings, with the calls that
// made them, and can be given any resolution, margins and papers.

#include "core/failure.h"
#include "print/device.h"

#include <QString>
#include <QStringList>

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace sheetwright {

struct PrintedDocument {
    std::int16_t orientation = 1;
    std::int16_t paper = 9;
    Recording recording;
};

class RecordingPrinter : public Printer {
  public:
    // At first a printer of 600 dots per inch with A4 in it, upright. `metrics` lives longer.
    using Printer::Printer;

    struct Sheet {
        double width;  // twips, upright
        double height;
    };

    double twipsPerPixelX = 2.4;
    double twipsPerPixelY = 2.4;
    int marginLeft = 0;  // the unprintable margin, in device pixels
    int marginTop = 0;
    QString driverName = QStringLiteral("Recording printer");
    std::map<std::int16_t, Sheet> papers{{std::int16_t{1}, {12240, 15840}},
                                         {std::int16_t{8}, {16838, 23811}},
                                         {std::int16_t{9}, {11906, 16838}},
                                         {std::int16_t{11}, {8391, 11906}}};
    // While set, the call raises that failure.
    std::optional<int> failureOfDrawing;
    std::optional<int> failureOfPictures;
    std::optional<int> failureOfEndDoc;

    std::vector<PrintedDocument> documents;  // those that ended, then the one that is open
    QStringList calls;                       // "EndDoc", "Orientation=2", "PaperSize=9", "open", in order

    [[nodiscard]] bool IsOpen() const { return m_isOpen; }
    [[nodiscard]] double Width() const override { return IsTurned() ? Paper().height : Paper().width; }
    [[nodiscard]] double Height() const override { return IsTurned() ? Paper().width : Paper().height; }
    [[nodiscard]] double TwipsPerPixelX() const override { return twipsPerPixelX; }
    [[nodiscard]] double TwipsPerPixelY() const override { return twipsPerPixelY; }
    [[nodiscard]] int GetDeviceCaps(int index) const override {
        constexpr int kMarginLeft = 112;
        constexpr int kMarginTop = 113;
        return index == kMarginLeft ? marginLeft : index == kMarginTop ? marginTop : 0;
    }
    [[nodiscard]] QString DriverName() const override { return driverName; }

    void EndDoc() override {
        calls << QStringLiteral("EndDoc");
        if (failureOfEndDoc) throw Failure(*failureOfEndDoc);
        m_isOpen = false;
    }
    [[nodiscard]] std::int16_t Orientation() const override { return m_orientation; }
    void SetOrientation(std::int16_t orientation) override {
        calls << QStringLiteral("Orientation=%1").arg(orientation);
        if (orientation != 1 && orientation != 2) throw Failure(failure::kInvalidProperty);
        m_orientation = orientation;
    }
    [[nodiscard]] std::int16_t PaperSize() const override { return m_paper; }
    void SetPaperSize(std::int16_t code) override {
        calls << QStringLiteral("PaperSize=%1").arg(code);
        if (!papers.contains(code)) throw Failure(failure::kInvalidProperty);
        m_paper = code;
    }
    void PaintPicture(const Picture& picture, double x, double y, double w, double h, double sx, double sy,
                      double sw, double sh) override {
        if (failureOfPictures) throw Failure(*failureOfPictures);
        Printer::PaintPicture(picture, x, y, w, h, sx, sy, sw, sh);
    }

  protected:
    void Draw(DrawnItem item) override {
        Touch();
        documents.back().recording.Add(std::move(item));
    }
    void Touch() override {
        if (failureOfDrawing) throw Failure(*failureOfDrawing);
        if (m_isOpen) return;
        calls << QStringLiteral("open");
        documents.push_back({m_orientation, m_paper, {}});
        m_isOpen = true;
    }

  private:
    [[nodiscard]] bool IsTurned() const { return m_orientation == 2; }
    [[nodiscard]] const Sheet& Paper() const { return papers.at(m_paper); }

    std::int16_t m_orientation = 1;
    std::int16_t m_paper = 9;
    bool m_isOpen = false;
};

// The printers of a machine that has `count` of them; counts how often anybody asks for `Printer`.
class RecordingPrinters : public Printers {
  public:
    explicit RecordingPrinters(class Printer& printer, int installed = 1)
        : count(installed), m_printer(printer) {}

    int count;
    int touches = 0;
    int follows = 0;  // calls of `FollowDefault`

    [[nodiscard]] int Count() const override { return count; }
    [[nodiscard]] class Printer& Printer() override {
        ++touches;
        if (count == 0) throw Failure(failure::kPrinterError);
        return m_printer;
    }
    void FollowDefault() override { ++follows; }

  private:
    class Printer& m_printer;
};

}  // namespace sheetwright

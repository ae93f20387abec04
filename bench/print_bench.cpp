// Printing pages of 240 boxed, filled fields from a form's lines. The yardsticks draw the same boxes and
// texts straight with Qt, in the same run: "pages/s" of both compare. Time and memory of a job must grow with
// its pages in a straight line.

#include "core/application.h"
#include "core/user_interface.h"
#include "document/document.h"
#include "peak_memory.h"
#include "print/fonts.h"
#include "print/pdf_printer.h"
#include "print/picture_surface.h"
#include "print/print_job.h"
#include "print/units.h"

#include <QFile>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace sheetwright {
namespace {

constexpr int kColumns = 6;
constexpr int kRows = 40;
constexpr int kFields = kColumns * kRows;
constexpr int kColumnWidth = 1900;  // twips
constexpr int kRowHeight = 400;
constexpr int kFieldWidth = 1800;
constexpr int kFieldHeight = 360;
constexpr int kMargin = 200;
constexpr int kPageWidth = 11906;
constexpr int kPageHeight = 16838;
constexpr double kFontSize = 8;  // points

int LeftOf(int field) {
    return kMargin + field % kColumns * kColumnWidth;
}
int TopOf(int field) {
    return kMargin + field / kColumns * kRowHeight;
}
QString ValueOf(int page, int field) {
    return QStringLiteral("Value %1 %2").arg(page).arg(field);
}

// A form of `pages` pages of one design, and the application that prints it.
class FilledForm {
  public:
    explicit FilledForm(int pages)
        : m_application(QStringLiteral("Sheetwright benchmark"), m_folder.path(), Settings(m_folder.path()),
                        m_ui),
          m_document(m_application) {
        LoadPapers();
        AddDesign();
        for (int page = 1; page <= pages; ++page)
            AddPage(page);
        m_document.Pages = static_cast<std::int16_t>(pages);
    }

    [[nodiscard]] Application& App() { return m_application; }
    [[nodiscard]] frmSheetwright& Document() { return m_document; }
    [[nodiscard]] std::int16_t Pages() const { return m_document.Pages; }
    [[nodiscard]] QString PdfPath() const { return m_folder.filePath(QStringLiteral("form.pdf")); }

    // The number of pages that came out.
    int PrintToPdf() {
        PdfPrinter printer(m_application, PdfPath(), QStringLiteral("Form"));
        const OnlyPrinter only(m_application, printer);
        PrintPages(m_document, printer, 1, Pages());
        return printer.Finish();
    }

  private:
    void LoadPapers() {
        QFile table(m_folder.filePath(QStringLiteral("papersizes.csv")));
        if (!table.open(QIODevice::WriteOnly)) return;
        table.write("PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n");
        table.close();
        m_application.LoadPaperTable();
    }
    void AddDesign() {
        MemoryBlock& memory = m_document.memory;
        const auto add = [&memory](const QString& line) { memory.AppendFormDesign(1, line); };
        for (const char* line : {"BEGIN PAGE 1", "Title=Sheet", "Orientation=1", "PaperSize=9"})
            add(QString::fromLatin1(line));
        for (int field = 0; field < kFields; ++field) {
            add(QStringLiteral("BEGIN FIELD"));
            add(QStringLiteral("Name=Field%1").arg(field));
            add(QStringLiteral("AbsLeft=%1").arg(LeftOf(field)));
            add(QStringLiteral("AbsTop=%1").arg(TopOf(field)));
            add(QStringLiteral("Width=%1").arg(kFieldWidth));
            add(QStringLiteral("Height=%1").arg(kFieldHeight));
            for (const char* line :
                 {"FieldType=0", "BorderStyle=1", "Alignment=0", "FontName=Arial", "FontSize=8",
                  "FontBold=False", "FontItalic=False", "FontUnderline=False", "FontStrikethru=False",
                  "ForeColor=0", "END FIELD"})
                add(QString::fromLatin1(line));
        }
        add(QStringLiteral("END PAGE"));
    }
    void AddPage(int number) {
        MemoryBlock& memory = m_document.memory;
        const auto page = static_cast<std::int16_t>(number);
        memory.AppendFormData(page, QStringLiteral("BEGIN PAGE %1 DESIGN=1").arg(number));
        for (int field = 0; field < kFields; ++field)
            memory.AppendFormData(page, QStringLiteral("Field%1=").arg(field) + ValueOf(number, field));
        memory.AppendFormData(page, QStringLiteral("END PAGE"));
    }

    QTemporaryDir m_folder;
    SilentUserInterface m_ui;
    Application m_application;
    frmSheetwright m_document;
};

// The same page with nothing between it and Qt: `scale` is units of the painter to the twip.
class PlainPage {
  public:
    PlainPage(QPainter& painter, double scale) : m_painter(painter), m_scale(scale) {
        QFont font(QStringLiteral("Liberation Sans"));
        font.setPointSizeF(kFontSize);
        m_painter.setFont(font);
        m_ascent = QFontMetricsF(font, painter.device()).ascent();
    }

    void Draw(int page) {
        for (int field = 0; field < kFields; ++field) {
            const double left = LeftOf(field) * m_scale;
            const double top = TopOf(field) * m_scale;
            m_painter.drawRect(QRectF(left, top, kFieldWidth * m_scale, kFieldHeight * m_scale));
            m_painter.drawText(QPointF(left + kTextLeft * m_scale, top + kTextTop * m_scale + m_ascent),
                               ValueOf(page, field));
        }
    }

  private:
    static constexpr double kTextLeft = 15;
    static constexpr double kTextTop = 45;

    QPainter& m_painter;
    double m_scale;
    double m_ascent = 0;
};

bool WritePlainPdf(const QString& path, int pages) {
    QPdfWriter writer(path);
    writer.setResolution(static_cast<int>(kTwipsPerInch));
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
    QPainter painter;
    if (!painter.begin(&writer)) return false;
    painter.setPen(QPen(Qt::black, 15));
    PlainPage plain(painter, 1);
    for (int page = 1; page <= pages; ++page) {
        if (page > 1) writer.newPage();
        plain.Draw(page);
    }
    return painter.end();
}

void CountPages(benchmark::State& state, int pages) {
    state.counters["pages/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * pages, benchmark::Counter::kIsRate);
}

void PrintToPdf(benchmark::State& state) {
    FilledForm form(static_cast<int>(state.range(0)));
    ResetPeakMemory();
    const double before = MemoryOf("VmRSS:");
    for (auto _ : state)
        if (form.PrintToPdf() != form.Pages()) return state.SkipWithError("pages are missing");
    CountPages(state, form.Pages());
    state.counters["peak_MB"] = (MemoryOf("VmHWM:") - before) / 1e6;
    state.counters["file_MB"] = static_cast<double>(QFile(form.PdfPath()).size()) / 1e6;
}

void PlainPdfYardstick(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("plain.pdf"));
    const int pages = static_cast<int>(state.range(0));
    ResetPeakMemory();
    const double before = MemoryOf("VmRSS:");
    for (auto _ : state)
        if (!WritePlainPdf(path, pages)) return state.SkipWithError("the file could not be written");
    CountPages(state, pages);
    state.counters["peak_MB"] = (MemoryOf("VmHWM:") - before) / 1e6;
    state.counters["file_MB"] = static_cast<double>(QFile(path).size()) / 1e6;
}

void DrawPreview(benchmark::State& state) {
    FilledForm form(1);
    const auto dotsPerInch = static_cast<double>(state.range(0));
    for (auto _ : state) {
        PictureSurface surface(FontsOf(form.App()), kPageWidth, kPageHeight);
        PrintPages(form.Document(), surface, 1, 1);
        benchmark::DoNotOptimize(surface.Render(dotsPerInch));
    }
    CountPages(state, 1);
}

// Without turning the recording into pixels.
void RecordPreview(benchmark::State& state) {
    FilledForm form(1);
    for (auto _ : state) {
        PictureSurface surface(FontsOf(form.App()), kPageWidth, kPageHeight);
        PrintPages(form.Document(), surface, 1, 1);
        benchmark::DoNotOptimize(surface.Recorded().Items().size());
    }
    CountPages(state, 1);
}

void PlainImageYardstick(benchmark::State& state) {
    const auto dotsPerInch = static_cast<double>(state.range(0));
    const double scale = dotsPerInch / kTwipsPerInch;
    constexpr double kInchesPerMetre = 1000 / 25.4;
    for (auto _ : state) {
        QImage image(qRound(kPageWidth * scale), qRound(kPageHeight * scale), QImage::Format_RGB32);
        image.setDotsPerMeterX(qRound(dotsPerInch * kInchesPerMetre));
        image.setDotsPerMeterY(qRound(dotsPerInch * kInchesPerMetre));
        image.fill(Qt::white);
        QPainter painter(&image);
        PlainPage(painter, scale).Draw(1);
        painter.end();
        benchmark::DoNotOptimize(image);
    }
    CountPages(state, 1);
}

void Pages(benchmark::internal::Benchmark* bench) {
    bench->ArgName("pages")->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();
}
void Resolutions(benchmark::internal::Benchmark* bench) {
    bench->ArgName("dpi")->Arg(96)->Arg(192)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(PrintToPdf)->Apply(Pages);
BENCHMARK(PlainPdfYardstick)->Apply(Pages);
BENCHMARK(DrawPreview)->Apply(Resolutions);
BENCHMARK(PlainImageYardstick)->Apply(Resolutions);
BENCHMARK(RecordPreview)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace sheetwright

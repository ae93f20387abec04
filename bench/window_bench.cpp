// The frame with a form in it: adding pages one by one, and what a long form costs in memory. Adding must
// grow with the pages in a straight line; recalculating after each page does not, since it goes through the
// form. An import, as a person sees it.

#include "core/application.h"
#include "document/document.h"
#include "document/pages.h"
#include "import/import.h"
#include "import_form.h"
#include "peak_memory.h"
#include "ui/desktop_user_interface.h"
#include "ui/form_window.h"
#include "ui/mdi_sheetwright.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace sheetwright {
namespace {

constexpr int kFields = 200;
constexpr int kRows = 50;

QByteArray FormOf(int pages) {
    QString text = QStringLiteral(
        "VERSION 1.0.0\r\nBEGIN DESIGN\r\nBEGIN PAGE 1\r\nTitle=Sheet\r\nOrientation=1\r\nPaperSize=9\r\n");
    for (int field = 0; field < kFields; ++field)
        text += QStringLiteral(
                    "BEGIN FIELD\r\nFieldType=0\r\nWordWrap=False\r\nReadOnly=False\r\nBorderStyle=1\r\n"
                    "Name=FIELD%1\r\nTabIdx=%1\r\nAbsLeft=%2\r\nAbsTop=%3\r\nWidth=1800\r\nHeight=300\r\n"
                    "Alignment=0\r\nFontName=Arial\r\nFontSize=8\r\nFontBold=False\r\nFontItalic=False\r\n"
                    "FontUnderline=False\r\nFontStrikethru=False\r\nForeColor=0\r\nEND FIELD\r\n")
                    .arg(field)
                    .arg(200 + field / kRows * 2000)
                    .arg(200 + field % kRows * 320);
    text += QStringLiteral("END PAGE\r\nEND DESIGN\r\nBEGIN DATA\r\n");
    for (int page = 1; page <= pages; ++page) {
        text += QStringLiteral("BEGIN PAGE %1 DESIGN=1\r\n").arg(page);
        for (int field = 0; field < kFields; ++field)
            text += QStringLiteral("FIELD%1=Value %2 %1\r\n").arg(field).arg(page);
        text += QStringLiteral("END PAGE\r\n");
    }
    return (text + QStringLiteral("END DATA\r\n")).toLatin1();
}

class OpenFrame {
  public:
    OpenFrame()
        : m_application(QStringLiteral("Sheetwright benchmark"), m_folder.path(), Settings(m_folder.path()),
                        m_ui) {
        (void)Write(QStringLiteral("papersizes.csv"),
                    "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n");
        m_application.LoadPaperTable();
        m_frame = std::make_unique<mdiSheetwright>(m_application);
        m_frame->show();
        QCoreApplication::processEvents();
    }

    frmSheetwright& Open(int pages) { return Open(FormOf(pages)); }
    frmSheetwright& Open(const QByteArray& form) {
        m_frame->DialogFileName = Write(QStringLiteral("form.aff"), form);
        m_frame->OpenFromDialogSlot();
        QCoreApplication::processEvents();
        return m_frame->Active()->Document();
    }

    // Status words and progress are seen from now on.
    void ShowStatus() { m_ui.UseStatusPanel(m_frame->Status()); }

    [[nodiscard]] QString Write(const QString& name, const QByteArray& bytes) const {
        QFile file(m_folder.filePath(name));
        QDir().mkpath(QFileInfo(file).path());
        if (file.open(QIODevice::WriteOnly)) file.write(bytes);
        return file.fileName();
    }

  private:
    QTemporaryDir m_folder;
    DesktopUserInterface m_ui;
    Application m_application;
    std::unique_ptr<mdiSheetwright> m_frame;
};

void AddAll(frmSheetwright& document, std::int64_t pages) {
    for (std::int64_t page = 0; page < pages; ++page) {
        SavePage(document);
        AddPage(document, 1, Placement::AtEnd, document.Pages);
        QCoreApplication::processEvents();
    }
}

void Measure(benchmark::State& state, bool recalculates) {
    for (auto _ : state) {
        state.PauseTiming();
        auto frame = std::make_unique<OpenFrame>();
        frmSheetwright& document = frame->Open(1);
        document.Importing = !recalculates;
        state.ResumeTiming();
        AddAll(document, state.range(0));
        state.PauseTiming();
        frame.reset();
        state.ResumeTiming();
    }
    state.counters["pages/s"] = benchmark::Counter(static_cast<double>(state.iterations() * state.range(0)),
                                                   benchmark::Counter::kIsRate);
}

void AddPages(benchmark::State& state) {
    Measure(state, true);
}

// As an import adds them.
void AddPagesWithoutRecalculation(benchmark::State& state) {
    Measure(state, false);
}

// Of the form alone, in its window.
void OpenInFrame(benchmark::State& state) {
    double bytes = 0;
    for (auto _ : state) {
        OpenFrame frame;
        const double before = MemoryOf("VmRSS:");
        (void)frame.Open(static_cast<int>(state.range(0)));
        bytes = MemoryOf("VmRSS:") - before;
    }
    state.counters["MB"] = bytes / 1024 / 1024;
}

void ImportInFrame(benchmark::State& state) {
    const auto records = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto frame = std::make_unique<OpenFrame>();
        (void)frame->Write(QStringLiteral("DRIVERS/meter/DRIVER.INF"), {});
        const QString table = frame->Write(QStringLiteral("DRIVERS/meter/table.csv"), ImportTable(records));
        frmSheetwright& document = frame->Open(ImportForm());
        frame->ShowStatus();
        state.ResumeTiming();
        Import(document, table);
        state.PauseTiming();
        frame.reset();
        state.ResumeTiming();
    }
    state.counters["records/s"] =
        benchmark::Counter(static_cast<double>(state.iterations() * records), benchmark::Counter::kIsRate);
}

BENCHMARK(ImportInFrame)->ArgName("records")->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(AddPages)->ArgName("pages")->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(AddPagesWithoutRecalculation)
    ->ArgName("pages")
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(OpenInFrame)->ArgName("pages")->Arg(1)->Arg(1000)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sheetwright

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

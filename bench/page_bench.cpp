// The page on screen: turning pages, building another design, drawing, opening a long form, typing. Building
// must grow with the elements in a straight line, and a page turn must not depend on how many pages there
// are.

#include "core/application.h"
#include "core/user_interface.h"
#include "document/document.h"
#include "document/document_commands.h"
#include "document/page.h"
#include "document/page_building.h"
#include "document/page_data.h"
#include "document/page_drawing.h"
#include "document/page_moves.h"
#include "fields/editing.h"
#include "fields/navigation.h"
#include "print/fonts.h"
#include "print/form_surfaces.h"
#include "print/picture_surface.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace sheetwright {
namespace {

constexpr int kColumns = 6;
constexpr int kColumnWidth = 1900;  // twips
constexpr int kRowHeight = 320;
constexpr int kRows = 50;
constexpr double kPageWidth = 11906;
constexpr double kPageHeight = 16838;

// How many elements a design has.
struct Elements {
    int fields = 0;
    int checks = 0;
    int labels = 0;
};
constexpr Elements kFields{300, 0, 0};
constexpr Elements Mixed(int count) {
    return {count * 2 / 3, count * 2 / 15, count / 5};
}

// The text of a form of one or two designs.
class DesignText {
  public:
    QString Of(int designs, const Elements& elements) {
        for (int design = 1; design <= designs; ++design) {
            m_elements = 0;
            m_text += QStringLiteral("BEGIN PAGE %1\r\nTitle=Sheet %1\r\nOrientation=1\r\nPaperSize=9\r\n")
                          .arg(design);
            Add(elements.labels, QStringLiteral("LABEL"),
                QStringLiteral("BorderStyle=0\r\nCaption=Label\r\n"));
            Add(elements.fields, QStringLiteral("FIELD"),
                QStringLiteral("FieldType=0\r\nWordWrap=False\r\nReadOnly=False\r\nBorderStyle=1\r\n"));
            Add(elements.checks, QStringLiteral("CHECK"),
                QStringLiteral("Style=0\r\nCaption=agreed\r\nStates=4\r\n"));
            m_text += QStringLiteral("END PAGE\r\n");
        }
        return m_text;
    }

  private:
    void Add(int count, const QString& word, const QString& keys) {
        for (int number = 0; number < count; ++number, ++m_elements) {
            const int place = m_elements % (kColumns * kRows);
            m_text += QStringLiteral("BEGIN ") + word + QStringLiteral("\r\n") + keys;
            m_text += QStringLiteral("Name=%1%2\r\nTabIdx=%3\r\n").arg(word).arg(number).arg(m_elements);
            m_text += QStringLiteral("AbsLeft=%1\r\nAbsTop=%2\r\nWidth=1800\r\nHeight=300\r\n")
                          .arg(200 + place % kColumns * kColumnWidth)
                          .arg(200 + place / kColumns * kRowHeight);
            m_text += QStringLiteral(
                "Alignment=0\r\nFontName=Arial\r\nFontSize=8\r\nFontBold=False\r\nFontItalic=False\r\n"
                "FontUnderline=False\r\nFontStrikethru=False\r\nForeColor=0\r\n");
            m_text += QStringLiteral("END ") + word + QStringLiteral("\r\n");
        }
    }

    QString m_text;
    int m_elements = 0;
};

// `pages` data pages; with `alternate` each has another design than the one before.
QByteArray FormOf(const Elements& elements, int pages, bool alternate) {
    QString text = QStringLiteral("VERSION 1.0.0\r\nBEGIN DESIGN\r\n") +
                   DesignText().Of(alternate ? 2 : 1, elements) +
                   QStringLiteral("END DESIGN\r\nBEGIN DATA\r\n");
    for (int page = 1; page <= pages; ++page) {
        text += QStringLiteral("BEGIN PAGE %1 DESIGN=%2\r\n").arg(page).arg(alternate ? 2 - page % 2 : 1);
        for (int field = 0; field < elements.fields; ++field)
            text += QStringLiteral("FIELD%1=Value %2 %1\r\n").arg(field).arg(page);
        for (int check = 0; check < elements.checks; ++check)
            text += QStringLiteral("CHECK%1=%2\r\n").arg(check).arg((page + check) % 4);
        text += QStringLiteral("END PAGE\r\n");
    }
    return (text + QStringLiteral("END DATA\r\n")).toLatin1();
}

class Workplace {
  public:
    Workplace()
        : m_application(QStringLiteral("Sheetwright benchmark"), m_folder.path(), Settings(m_folder.path()),
                        m_ui) {
        Write(QStringLiteral("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n");
        m_application.LoadPaperTable();
    }

    [[nodiscard]] Application& App() { return m_application; }
    QString Write(const QString& name, const QByteArray& bytes) const {
        QFile file(m_folder.filePath(name));
        if (file.open(QIODevice::WriteOnly)) file.write(bytes);
        return file.fileName();
    }

  private:
    QTemporaryDir m_folder;
    SilentUserInterface m_ui;
    Application m_application;
};

// A form that is open as in a window, without one.
class OpenedForm {
  public:
    OpenedForm(const Elements& elements, int pages, bool alternate)
        : m_path(m_workplace.Write(QStringLiteral("form.aff"), FormOf(elements, pages, alternate))) {
        Open();
    }

    void Open() {
        m_document.reset();
        OpenForm(
            m_workplace.App(), m_path,
            [this]() -> frmSheetwright& {
                m_document = std::make_unique<frmSheetwright>(m_workplace.App());
                return *m_document;
            },
            [this](frmSheetwright&) { m_document.reset(); });
    }
    [[nodiscard]] bool IsOpen() const { return m_document != nullptr; }
    [[nodiscard]] frmSheetwright& Document() { return *m_document; }
    [[nodiscard]] Application& App() { return m_workplace.App(); }
    [[nodiscard]] const QString& Path() const { return m_path; }

    void TurnPage() {
        SavePage(*m_document);
        m_document->DataPageNum = m_document->DataPageNum == 1 ? std::int16_t{2} : std::int16_t{1};
        LoadPage(*m_document);
    }

  private:
    Workplace m_workplace;
    QString m_path;
    std::unique_ptr<frmSheetwright> m_document;
};

void TurnPagesOfOneDesign(benchmark::State& state) {
    OpenedForm form(kFields, static_cast<int>(state.range(0)), false);
    for (auto _ : state)
        form.TurnPage();
}

void TurnToAnotherDesign(benchmark::State& state) {
    OpenedForm form(Mixed(static_cast<int>(state.range(0))), 2, true);
    for (auto _ : state)
        form.TurnPage();
    state.counters["elements/s"] = benchmark::Counter(
        static_cast<double>(state.iterations() * state.range(0)), benchmark::Counter::kIsRate);
}

template <typename Draw>
void DrawElements(const frmSheetwright& document, const Draw& draw) {
    for (int number = 1; number <= document.page->Entries.Count(); ++number)
        draw(DrawEntry, number);
    for (int number = 1; number <= document.page->Checks.Count(); ++number)
        draw(DrawCheck, number);
}

// Without turning the recording into pixels.
void RecordElements(benchmark::State& state) {
    OpenedForm form(Mixed(static_cast<int>(state.range(0))), 1, false);
    PictureSurface surface(FontsOf(form.App()), kPageWidth, kPageHeight);
    for (auto _ : state) {
        surface.Cls();
        DrawElements(form.Document(),
                     [&](auto drawElement, int number) { drawElement(form.Document(), number, surface); });
        benchmark::DoNotOptimize(surface.Recorded().Items().size());
    }
}

void RenderPage(benchmark::State& state) {
    OpenedForm form(Mixed(300), 1, false);
    const auto dotsPerInch = static_cast<double>(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(RenderPageOnScreen(form.Document(), dotsPerInch));
}

void OpenToFirstPage(benchmark::State& state) {
    OpenedForm form(kFields, static_cast<int>(state.range(0)), false);
    for (auto _ : state) {
        form.Open();
        if (!form.IsOpen()) return state.SkipWithError("the form could not be read");
    }
}

// The yardstick of the above: the same form into memory, with no page.
void ReadOnly(benchmark::State& state) {
    OpenedForm form(kFields, static_cast<int>(state.range(0)), false);
    for (auto _ : state) {
        frmSheetwright document(form.App());
        document.Tag = form.Path();
        UnpackAndRead(document);
        benchmark::DoNotOptimize(document.Pages);
    }
}

// Tab into the next field, one character, and the same once more: what a person waits for.
void TypeAndTab(benchmark::State& state) {
    OpenedForm form(kFields, 1, false);
    frmSheetwright& document = form.Document();
    QString text;
    for (auto _ : state) {
        text = text.size() > 20 ? QString() : text + u'x';
        document.page->Entry.ReportText(text);
        SimulateTab(document);
    }
}

void TakeTexts(benchmark::State& state) {
    OpenedForm form(kFields, 1, false);
    const QString texts[] = {QStringLiteral("12.5"), QStringLiteral("7")};
    std::size_t turn = 0;
    for (auto _ : state)
        TakeText(form.Document(), {ElementKind::Entry, 1}, texts[++turn % 2], QStringLiteral("0.00"));
}

BENCHMARK(TurnPagesOfOneDesign)->ArgName("pages")->Arg(2)->Arg(200)->Unit(benchmark::kMicrosecond);
BENCHMARK(TurnToAnotherDesign)
    ->ArgName("elements")
    ->Arg(300)
    ->Arg(3000)
    ->Arg(30000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(RecordElements)
    ->ArgName("elements")
    ->Arg(300)
    ->Arg(3000)
    ->Arg(30000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(RenderPage)->ArgName("dpi")->Arg(96)->Arg(192)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenToFirstPage)->ArgName("pages")->Arg(50)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadOnly)->ArgName("pages")->Arg(50)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(TypeAndTab)->Unit(benchmark::kMicrosecond);
BENCHMARK(TakeTexts)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace sheetwright

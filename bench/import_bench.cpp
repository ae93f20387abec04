// An import: a table of 12 columns into pages of 20 lines with 40 formulas. It must grow with the records in
// a straight line.

#include "core/application.h"
#include "core/user_interface.h"
#include "document/document.h"
#include "document/document_commands.h"
#include "import/import.h"
#include "peak_memory.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace sheetwright {
namespace {

constexpr int kColumns = 12;
constexpr int kLines = 20;

// One FIELD record; its place does not matter here.
QString Record(const QString& name, const QString& keys, int number) {
    return QStringLiteral("BEGIN FIELD\r\nName=%1\r\n%2TabIdx=%3\r\n").arg(name, keys).arg(number) +
           QStringLiteral(
               "FieldType=0\r\nWordWrap=False\r\nReadOnly=False\r\nBorderStyle=1\r\nAbsLeft=200\r\n"
               "AbsTop=200\r\nWidth=900\r\nHeight=300\r\nAlignment=0\r\nFontName=Arial\r\n"
               "FontSize=8\r\nFontBold=False\r\nFontItalic=False\r\nFontUnderline=False\r\n"
               "FontStrikethru=False\r\nForeColor=0\r\nEND FIELD\r\n");
}

// The fields of one line: the columns, the first of which is the key and begins a new line, and two formulas.
QString LineOf(int line) {
    QString text;
    for (int column = 1; column <= kColumns; ++column)
        text += Record(
            QStringLiteral("c%1 %2").arg(column).arg(line),
            QStringLiteral("DataSource=c%1,DRIVERS\\meter\r\nMultiRecordIndex=%2\r\n%3")
                .arg(column)
                .arg(line)
                .arg(column == 1 ? QStringLiteral("KeyLevel=1\r\nNewLineOnReoccur=True\r\n") : QString()),
            line * 100 + column);
    for (const int formula : {1, 2})
        text +=
            Record(QStringLiteral("f%1 %2").arg(formula).arg(line),
                   QStringLiteral("Formula=SETME(ADD({FIELDS\\Sheet,c%1 %2},1))\r\nMultiRecordIndex=%2\r\n")
                       .arg(formula + 1)
                       .arg(line),
                   line * 100 + 50 + formula);
    return text;
}

QByteArray FormText() {
    QString text = QStringLiteral(
        "VERSION 1.0.0\r\nBEGIN DESIGN\r\nBEGIN PAGE 1\r\nTitle=Sheet\r\n"
        "Orientation=1\r\nPaperSize=9\r\n");
    for (int line = 0; line < kLines; ++line)
        text += LineOf(line);
    return (text +
            QStringLiteral("END PAGE\r\nEND DESIGN\r\nBEGIN DATA\r\nBEGIN PAGE 1 DESIGN=1\r\nEND PAGE\r\n"
                           "END DATA\r\n"))
        .toLatin1();
}

QByteArray TableOf(int records) {
    QByteArray text("c1");
    for (int column = 2; column <= kColumns; ++column)
        text += ",c" + QByteArray::number(column);
    for (int record = 1; record <= records; ++record) {
        text += "\r\nkey " + QByteArray::number(record * 7919 % 1000003);
        for (int column = 2; column <= kColumns; ++column)
            text += ',' + QByteArray::number(record * column % 977);
    }
    return text + "\r\n";
}

class Workplace {
  public:
    Workplace()
        : m_application(QStringLiteral("Sheetwright benchmark"), m_folder.path(), Settings(m_folder.path()),
                        m_ui) {
        QDir(m_folder.path()).mkpath(QStringLiteral("DRIVERS/meter"));
        Write(QStringLiteral("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n");
        Write(QStringLiteral("DRIVERS/meter/DRIVER.INF"), "");
        m_application.LoadPaperTable();
    }

    QString Write(const QString& name, const QByteArray& bytes) const {
        QFile file(m_folder.filePath(name));
        if (file.open(QIODevice::WriteOnly)) file.write(bytes);
        return file.fileName();
    }
    // Opens the form anew, as in a window.
    frmSheetwright& Open() {
        const QString path = Write(QStringLiteral("form.aff"), FormText());
        m_document.reset();
        const auto make = [this]() -> frmSheetwright& {
            m_document = std::make_unique<frmSheetwright>(m_application);
            return *m_document;
        };
        OpenForm(m_application, path, make, [this](frmSheetwright&) { m_document.reset(); });
        return *m_document;
    }

  private:
    QTemporaryDir m_folder;
    SilentUserInterface m_ui;
    Application m_application;
    std::unique_ptr<frmSheetwright> m_document;
};

void ImportRecords(benchmark::State& state) {
    Workplace workplace;
    const auto records = static_cast<int>(state.range(0));
    const QString table = workplace.Write(QStringLiteral("DRIVERS/meter/table.csv"), TableOf(records));
    ResetPeakMemory();
    const double before = MemoryOf("VmRSS:");
    for (auto _ : state) {
        state.PauseTiming();
        frmSheetwright& document = workplace.Open();
        state.ResumeTiming();
        Import(document, table);
        if (document.Pages != (records + kLines - 1) / kLines) state.SkipWithError("other pages");
    }
    state.counters["peak_MB"] = (MemoryOf("VmHWM:") - before) / 1e6;
    state.counters["records/s"] =
        benchmark::Counter(static_cast<double>(state.iterations() * records), benchmark::Counter::kIsRate);
}

BENCHMARK(ImportRecords)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sheetwright

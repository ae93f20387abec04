// An import: a table of 12 columns into pages of 20 lines with 40 formulas. It must grow with the records in
// a straight line.

#include "core/application.h"
#include "core/user_interface.h"
#include "document/document.h"
#include "document/document_commands.h"
#include "import/import.h"
#include "import_form.h"
#include "peak_memory.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace sheetwright {
namespace {

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
        const QString path = Write(QStringLiteral("form.aff"), ImportForm());
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
    const QString table = workplace.Write(QStringLiteral("DRIVERS/meter/table.csv"), ImportTable(records));
    ResetPeakMemory();
    const double before = MemoryOf("VmRSS:");
    for (auto _ : state) {
        state.PauseTiming();
        frmSheetwright& document = workplace.Open();
        state.ResumeTiming();
        Import(document, table);
        if (document.Pages != (records + kImportLines - 1) / kImportLines) state.SkipWithError("other pages");
    }
    state.counters["peak_MB"] = (MemoryOf("VmHWM:") - before) / 1e6;
    state.counters["records/s"] =
        benchmark::Counter(static_cast<double>(state.iterations() * records), benchmark::Counter::kIsRate);
}

BENCHMARK(ImportRecords)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sheetwright

// Full recalculation of pages with 42 formulas each: arithmetic, IF, references, and one SUM over all pages.
// The counter "evaluations/s" counts every entry of the evaluator but not the visits that SUM makes.

#include "core/application.h"
#include "document/document.h"
#include "formula/evaluator.h"
#include "formula/recalculation.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace sheetwright {
namespace {

constexpr int kLines = 13;

// Thirteen lines of a reading, its corrected value, its verdict and a note, then totals: 42 formulas a page.
void AddFormulas(MemoryBlock& memory, bool withSum) {
    const auto add = [&memory](const QString& name, const QString& formula) {
        memory.AppendFormulas(1, formula, name);
    };
    for (int line = 1; line <= kLines; ++line) {
        const QString n = QString::number(line);
        const QString reading = QStringLiteral("{FIELDS\\Results,Reading %1}").arg(n);
        add(QStringLiteral("Corrected ") + n, QStringLiteral("SETME(MULTIPLY(%1,1.02))").arg(reading));
        add(QStringLiteral("Verdict ") + n,
            QStringLiteral("SETME(IF(GREATERTHAN({FIELDS\\Results,Corrected %1},50),\"PASS\",\"FAIL\"))")
                .arg(n));
        add(QStringLiteral("Note ") + n,
            QStringLiteral("SETME(CONCATENATE(\"Page \",PAGENUMBER,\": \",{FIELDS\\Results,Verdict %1}))")
                .arg(n));
    }
    add(QStringLiteral("Previous"), QStringLiteral("SETME(PREVIOUSVALUE({FIELDS\\Results,Corrected 1}))"));
    add(QStringLiteral("Average"),
        QStringLiteral("SETME(AVERAGE({FIELDS\\Results,Corrected 1},"
                       "{FIELDS\\Results,Corrected 2},{FIELDS\\Results,Corrected 3}))"));
    add(QStringLiteral("Total"), withSum ? QStringLiteral("SETME(SUM({FIELDS\\Results,Corrected 1}))")
                                         : QStringLiteral("SETME({FIELDS\\Results,Corrected 1})"));
}

void AddPages(MemoryBlock& memory, int pages) {
    memory.AppendFormDesign(1, QStringLiteral("BEGIN PAGE 1"));
    memory.AppendFormDesign(1, QStringLiteral("END PAGE"));
    memory.PageProps.Add(QStringLiteral("Results"), QStringLiteral("1"));
    for (int number = 1; number <= pages; ++number) {
        const auto page = static_cast<std::int16_t>(number);
        memory.AppendFormData(page, QStringLiteral("BEGIN PAGE %1 DESIGN=1").arg(page));
        for (int line = 1; line <= kLines; ++line) {
            memory.AppendFormData(page,
                                  QStringLiteral("Reading %1=%2.%3").arg(line).arg(40 + page % 20).arg(line));
            for (const char* name : {"Corrected", "Verdict", "Note"})
                memory.AppendFormData(page, QStringLiteral("%1 %2=").arg(QLatin1StringView(name)).arg(line));
        }
        for (const char* name : {"Previous", "Average", "Total"})
            memory.AppendFormData(page, QLatin1StringView(name) + QStringLiteral("="));
        memory.AppendFormData(page, QStringLiteral("END PAGE"));
    }
}

// Entries of the evaluator for one page: each line's formulas take 4, 6 and 6, the last three 2, 5 and 2.
constexpr int kEvaluationsPerPage = kLines * (4 + 6 + 6) + 2 + 5 + 2;

void Recalculate(benchmark::State& state, bool withSum) {
    const QTemporaryDir folder;
    SilentUserInterface ui;
    Application application(QStringLiteral("Sheetwright benchmark"), folder.path(), Settings(folder.path()),
                            ui);
    frmSheetwright document(application);
    const int pages = static_cast<int>(state.range(0));
    AddPages(document.memory, pages);
    AddFormulas(document.memory, withSum);
    document.Pages = static_cast<std::int16_t>(pages);
    for (auto _ : state)
        ÜberupdateFormulas(document, false);
    const auto evaluations = static_cast<double>(state.iterations()) * pages * kEvaluationsPerPage;
    state.counters["evaluations/s"] = benchmark::Counter(evaluations, benchmark::Counter::kIsRate);
}

void RecalculateWithSum(benchmark::State& state) {
    Recalculate(state, true);
}
void RecalculateWithoutSum(benchmark::State& state) {
    Recalculate(state, false);
}

BENCHMARK(RecalculateWithSum)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(RecalculateWithoutSum)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sheetwright

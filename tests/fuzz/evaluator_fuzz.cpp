// Any text as a formula: whatever it holds, it ends with a value or a failure, soon and without harm.

#include "core/application.h"
#include "core/failure.h"
#include "document/memory_block.h"
#include "formula/evaluator.h"

#include <QLocale>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {

using namespace sheetwright;

struct Surroundings {
    QTemporaryDir folder;
    SilentUserInterface ui;
    Application application{QStringLiteral("Tolvane Quillon Sheetwright"), folder.path(),
                            Settings(folder.filePath(QStringLiteral("settings"))), ui};
    MemoryBlock memory;
    TruthWords words;
    QString tempDir = folder.path() + u'/';
    std::int16_t dataPageNum = 2;
    std::int16_t mePage = 0;

    Surroundings() {
        application.conventions = ConventionsOf(QLocale(QLocale::German, QLocale::Germany));
        memory.PageProps.Add(QStringLiteral("A"), QStringLiteral("1"));
        for (std::int16_t page = 1; page <= 3; ++page) {
            for (const QStringView line :
                 {u"BEGIN PAGE 1 DESIGN=1", u"b=31.12.1999", u"c=>5", u"b=12", u"END PAGE"})
                memory.AppendFormData(page, line);
        }
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Surroundings surroundings;
    const QString formula =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    Value me = QStringLiteral("5");
    EvaluationContext context{.application = surroundings.application,
                              .memory = surroundings.memory,
                              .FormVars = surroundings.application.FormVars,
                              .words = surroundings.words,
                              .MyTempDir = surroundings.tempDir,
                              .DataPageNum = surroundings.dataPageNum,
                              .MePage = surroundings.mePage,
                              .Me = me};
    Evaluator evaluator(context);
    Ignoring([&] { evaluator.RunStatements(formula); });
    QString expression = formula;
    Ignoring([&] { (void)evaluator.Evaluate(expression); });
    if (expression.size() != formula.size()) std::abort();
    return 0;
}

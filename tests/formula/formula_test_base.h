#pragma once

// A document's data as formulas see it, without a document: pages, driver record, attached list, working
// folder.

#include "core/application.h"
#include "document/memory_block.h"
#include "formula/evaluator.h"
#include "import/csv_table.h"
#include "support/test_application.h"

#include <QLocale>
#include <QStringList>

#include <string>

namespace sheetwright {

class FormulaTest : public ApplicationTest {
  protected:
    FormulaTest() {
        UseLocale(QLocale(QLocale::English, QLocale::UnitedKingdom));
        m_tempDir = Path(QStringLiteral("work/"));
    }

    void UseLocale(const QLocale& locale) { m_application->conventions = ConventionsOf(locale); }

    void AddDesign(const QString& title) {
        m_memory.PageProps.Add(title, QString::number(m_memory.PageProps.Count() + 1));
    }
    void AddPage(int design, const QStringList& items) {
        const auto number = static_cast<std::int16_t>(m_memory.DataPageCount() + 1);
        m_memory.AppendFormData(number, QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(number).arg(design));
        for (const QString& item : items)
            m_memory.AppendFormData(number, item);
        m_memory.AppendFormData(number, QStringLiteral("END PAGE"));
    }

    [[nodiscard]] EvaluationContext Context() {
        return {.application = *m_application,
                .memory = m_memory,
                .FormVars = m_application->FormVars,
                .words = m_words,
                .MyTempDir = m_tempDir,
                .DataPageNum = m_dataPageNum,
                .MePage = m_mePage,
                .Me = m_me,
                .DriverData = m_driver,
                .EntryList = m_list};
    }

    // Kind and text of an expression's value, "Double 3" say, or "failure 5".
    std::string Told(const QString& expression) {
        EvaluationContext context = Context();
        Evaluator evaluator(context);
        QString told;
        const auto failed = FailureOf([&] { told = Told(evaluator.Evaluate(QStringView(expression))); });
        return failed ? "failure " + std::to_string(*failed) : told.toStdString();
    }
    std::string Told(const char* expression) { return Told(QString::fromUtf8(expression)); }
    QString Told(const Value& value) const {
        const QString text = TextOf(value, m_application->conventions);
        return value == Value() ? QStringLiteral("Empty") : KindOf(value) + u' ' + text;
    }

    // The field's value after the statements of a formula.
    std::string Run(const char* formula) {
        EvaluationContext context = Context();
        Evaluator(context).RunStatements(QString::fromUtf8(formula));
        return Told(m_me).toStdString();
    }

    MemoryBlock m_memory;
    TruthWords m_words;
    QString m_tempDir;
    std::int16_t m_dataPageNum = 1;
    std::int16_t m_mePage = 0;
    Value m_me;
    CsvTable* m_driver = nullptr;
    CsvTable* m_list = nullptr;
};

}  // namespace sheetwright

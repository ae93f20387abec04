// Runs every example of docs/formula-language.md against the document that the page describes.

#include "core/folders.h"
#include "core/paths.h"
#include "core/text.h"
#include "formula/formula_test_base.h"
#include "formula/functions.h"

#include <QRegularExpression>
#include <QSet>

namespace sheetwright {
namespace {

struct Example {
    QString expression;
    QString told;
};

QString Page() {
    return DecodeFileText(ReadWholeFile(QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/docs/formula-language.md")));
}

std::vector<Example> Examples() {
    static const QRegularExpression kRow(QStringLiteral("^\\| `(.*)` \\| (\\w+) \\| (?:(.*) )?\\|$"));
    std::vector<Example> examples;
    const QString page = Page();
    for (const QStringView line : SplitLines(page)) {
        const QRegularExpressionMatch row = kRow.match(line.toString());
        if (!row.hasMatch()) continue;
        const QString kind = row.captured(2);
        const QString told = kind == QStringLiteral("Empty") ? kind : kind + u' ' + row.captured(3);
        examples.push_back({row.captured(1), told});
    }
    return examples;
}

class FormulaLanguageTest : public FormulaTest {
  protected:
    FormulaLanguageTest() {
        MakePages();
        MakeFiles();
        m_dataPageNum = 3;
        m_mePage = 3;
        m_me = QStringLiteral("5");
    }

    void MakePages() {
        for (const QString& title :
             {QStringLiteral("Cover"), QStringLiteral("Result"), QStringLiteral("Summary")})
            AddDesign(title);
        AddPage(
            1, {QStringLiteral("Name=Pump 7"), QStringLiteral("Date=31/12/1999"), QStringLiteral("Remark=")});
        AddPage(2, {QStringLiteral("Reading=10")});
        AddPage(2, {QStringLiteral("Reading=20.5")});
        AddPage(3, {QStringLiteral("Total=")});
    }

    void MakeFiles() {
        SetListFolder(*m_application, m_folder.path());
        Write(QStringLiteral("orders.inf"), "[Due]\r\nDataType=DATE\r\n[Paid]\r\nDataType=BOOLEAN\r\n");
        m_orders.SetFileName(Write(QStringLiteral("orders.csv"), "Customer,Due,Paid\r\nAda,19991231,-1\r\n"));
        m_driver = &m_orders;
        m_stock.SetFileName(Write(QStringLiteral("Lists/stock.csv"), "Code,Name\r\nA1,Bolt\r\nA2,Nut\r\n"));
        m_stock.SetPosition(2);
        m_list = &m_stock;
        Write(QStringLiteral("work/FormVars.txt"), "site=North\r\n");
        Write(QStringLiteral("work/Validation.Status"), "passed\r\n");
    }

    CsvTable m_orders;
    CsvTable m_stock;
};

TEST_F(FormulaLanguageTest, EveryExampleGivesWhatThePageSays) {
    const Value me = m_me;
    for (const Example& example : Examples()) {
        m_me = me;
        EXPECT_EQ(Told(example.expression), example.told.toStdString()) << example.expression.toStdString();
    }
}

TEST_F(FormulaLanguageTest, EveryFunctionHasAnExample) {
    QSet<QString> shown;
    for (const Example& example : Examples())
        shown.insert(example.expression.section(u'(', 0, 0));
    for (const QString& name : FunctionNames())
        EXPECT_TRUE(name == QStringLiteral("TODAY") || shown.contains(name)) << name.toStdString();
    for (const QString& name : KeywordNames())
        EXPECT_TRUE(Page().contains(u'"' + name + u'"')) << name.toStdString();
}

}  // namespace
}  // namespace sheetwright

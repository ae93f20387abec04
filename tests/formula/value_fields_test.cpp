#include "formula/value_conversion.h"
#include "formula/value_test_conventions.h"
#include "import/csv_table.h"
#include "support/test_application.h"

#include <gtest/gtest.h>

namespace sheetwright {
namespace {

// --- GetCsvField

TEST(GetCsvField, QuotedFieldsKeepTheirCommas) {
    EXPECT_EQ(GetCsvField(u"a,\"b,c\",d", 2, English()), Value(QStringLiteral("b,c")));
    EXPECT_EQ(GetCsvField(u"a,\"b,c\",d", 3, English()), Value(QStringLiteral("d")));
    EXPECT_EQ(GetCsvField(u"\"a,b,c\"", 1, English()), Value(QStringLiteral("a,b,c")));
    EXPECT_EQ(GetCsvField(u"x\"a,b\"y,z", 1, English()), Value(QStringLiteral("x\"a,b\"y")));
}

TEST(GetCsvField, EmptyFieldReadsAsTheNumberZero) {
    EXPECT_EQ(GetCsvField(u"a,,c", 2, English()), Value(0.0));
    EXPECT_EQ(GetCsvField(u"a,", 2, English()), Value(0.0));
    EXPECT_EQ(GetCsvField(u",", 1, English()), Value(0.0));
}

TEST(GetCsvField, NumbersAreDoubles) {
    EXPECT_EQ(GetCsvField(u"007,1.5,x", 1, English()), Value(7.0));
    EXPECT_EQ(GetCsvField(u"007,1.5,x", 2, English()), Value(1.5));
    EXPECT_EQ(GetCsvField(u"007,1.5,x", 3, English()), Value(QStringLiteral("x")));
    EXPECT_EQ(GetCsvField(u"31.12.1999", 1, German()), Value(19991231.0));
}

TEST(GetCsvField, QuotedNumbersAreStrings) {
    EXPECT_EQ(GetCsvField(u"\"007\",x", 1, English()), Value(QStringLiteral("007")));
    EXPECT_EQ(GetCsvField(u"\"\",x", 1, English()), Value(QStringLiteral("")));
    EXPECT_EQ(GetCsvField(u"\"", 1, English()), Value(QStringLiteral("")));
}

TEST(GetCsvField, PastTheLastFieldIsEmpty) {
    EXPECT_EQ(GetCsvField(u"", 1, English()), Value(Empty()));
    EXPECT_EQ(GetCsvField(u"a,b", 3, English()), Value(Empty()));
    EXPECT_EQ(GetCsvField(u"a,b", 0, English()), Value(Empty()));
    EXPECT_EQ(GetCsvField(u"a,b", -1, English()), Value(Empty()));
}

TEST(GetCsvField, AQuoteWithoutItsPartnerHidesNoComma) {
    EXPECT_EQ(GetCsvField(u"a,\"b,c", 2, English()), Value(QStringLiteral("")));
    EXPECT_EQ(GetCsvField(u"a,\"b,c", 3, English()), Value(QStringLiteral("c")));
}

TEST(GetCsvField, OnlyTheFirstTwoQuotesOfAFieldCount) {
    EXPECT_EQ(GetCsvField(u"\"a\"\"b,c\",d", 1, English()), Value(QStringLiteral("a\"\"")));
    EXPECT_EQ(GetCsvField(u"\"a,b\"", 2, English()), Value(Empty()));
}

TEST(GetCsvField, LongLinesCostInProportion) {
    const QString line = QStringLiteral("\"x\",").repeated(200000) + QStringLiteral("end");
    EXPECT_EQ(GetCsvField(line, 200001, English()), Value(QStringLiteral("end")));
}

// --- FieldDisplayText

class FieldDisplay : public ApplicationTest {
  protected:
    void SetUp() override {
        Write(QStringLiteral("table.csv"), "Ok,When,What\r\n-1,19991231,x\r\n1,,007\r\n");
        Write(QStringLiteral("table.inf"), "[Ok]\r\nDataType=BOOLEAN\r\n[When]\r\nDataType=DATE\r\n");
        m_table.SetFileName(Path(QStringLiteral("table.csv")));
    }

    QString Shown(const QString& name) {
        return FieldDisplayText(m_table.Columns().At(name), English(),
                                {QStringLiteral("Wahr"), QStringLiteral("Falsch")});
    }

    CsvTable m_table;
};

TEST_F(FieldDisplay, ShowsTruthWordsDatesAndPlainValues) {
    EXPECT_EQ(Shown(QStringLiteral("Ok")), QStringLiteral("Wahr"));
    EXPECT_EQ(Shown(QStringLiteral("When")), QStringLiteral("31/12/1999"));
    EXPECT_EQ(Shown(QStringLiteral("What")), QStringLiteral("x"));
}

TEST_F(FieldDisplay, OnlyMinusOneIsTrueAndABlankDateShowsNothing) {
    m_table.MoveNext();
    EXPECT_EQ(Shown(QStringLiteral("Ok")), QStringLiteral("Falsch"));
    EXPECT_EQ(Shown(QStringLiteral("When")), QStringLiteral(""));
    EXPECT_EQ(Shown(QStringLiteral("What")), QStringLiteral("007"));
}

TEST(CsvFieldsOf, GivesTheFieldsThatAreGivenOneByOne) {
    const Conventions conventions = ConventionsOf(QLocale::c());
    for (const QString& line : {QString(), QStringLiteral(","), QStringLiteral("A,B,,C,"),
                                QStringLiteral("\"a,b\",007,\"\""), QStringLiteral("\"open,x")}) {
        const std::vector<Value> fields = CsvFieldsOf(line, conventions);
        for (std::size_t index = 0; index < fields.size(); ++index)
            EXPECT_EQ(fields[index], GetCsvField(line, static_cast<int>(index) + 1, conventions));
        EXPECT_EQ(GetCsvField(line, static_cast<int>(fields.size()) + 1, conventions), Value(Empty()));
    }
}

}  // namespace
}  // namespace sheetwright

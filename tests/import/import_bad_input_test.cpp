// Tables that nobody should give to the program: each has a plain outcome.

#include "import/import_fixture.h"

#include <QFile>

namespace sheetwright {
namespace {

class BadTable : public ImportTest {
  protected:
    // "k" begins a page for each record.
    static FormText PageForEach() {
        FormText form;
        form.Page(S("A")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
        form.Field(S("v"), Takes(S("V")));
        return form;
    }
    void PourInto(FormText form, const QByteArray& table) { Pour(form.Data(1, {}), table); }
    [[nodiscard]] QByteArray Kept(int number) const {
        return ApplicationTest::Read(S("temporary/import%1.csv").arg(number));
    }
    void Append(const QString& path, const QByteArray& bytes) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(bytes);
    }
    [[nodiscard]] static QByteArray Columns(int count) {
        QByteArray names("c1");
        for (int column = 2; column <= count; ++column)
            names += ",c" + QByteArray::number(column);
        return names;
    }
};

TEST_F(BadTable, WithoutAHeaderItHasNoRecords) {
    for (const char* bytes : {"", "\r\n\r\n", "\xEF\xBB\xBF"}) {
        FormText form = PageForEach();
        Show(form.Data(1, {S("k=old"), S("v=1")}));
        const ImportResult result = Import(*m_document, WriteTable(bytes));
        EXPECT_EQ(result.columns, 0);
        EXPECT_EQ(result.records, 0);
        EXPECT_EQ(Pages(), QStringList{S("old|1")});
        EXPECT_EQ(m_ui.statuses.last(), S("Ready"));
    }
}

TEST_F(BadTable, HeaderAloneFillsNothing) {
    FormText form = PageForEach();
    Show(form.Data(1, {S("k=old"), S("v=1")}));
    const ImportResult result = Import(*m_document, WriteTable("K,V\r\n"));
    EXPECT_EQ(result.columns, 2);
    EXPECT_EQ(result.records, 0);
    EXPECT_EQ(Pages(), QStringList{S("old|1")});
}

TEST_F(BadTable, RecordsOfAnyWidthAreReadAsFarAsTheyGo) {
    PourInto(PageForEach(), "K,V\r\na\r\nb,2,3,4\r\n\"c\"x,\"5\"\r\n\r\nd,\"6,\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a|"), S("b|2"), S("cx|5"), S("d|6,\r\n")}));
}

TEST_F(BadTable, ByteOrderMarkIsNoPartOfTheFirstName) {
    PourInto(PageForEach(), "\xEF\xBB\xBFK,V\r\nGer\xC3\xA4t,1\r\n");
    EXPECT_EQ(Pages(), QStringList{QStringLiteral("Ger\u00E4t|1")});
}

TEST_F(BadTable, BytesOfTheCodePageAreRead) {
    PourInto(PageForEach(), "K,V\r\nGer\xE4t \x80,1\r\n");
    EXPECT_EQ(Pages(), QStringList{QStringLiteral("Ger\u00E4t \u20AC|1")});
}

TEST_F(BadTable, Utf16HasNoColumnThatAnybodyNames) {
    FormText form = PageForEach();
    Show(form.Data(1, {S("k=old"), S("v=1")}));
    const QByteArray bytes("\xFF\xFEK\0,\0V\0\r\0\n\0a\0,\0001\0\r\0\n\0", 22);
    EXPECT_EQ(Import(*m_document, WriteTable(bytes)).columns, 0);
    EXPECT_EQ(Pages(), QStringList{S("old|1")});
}

TEST_F(BadTable, NulBytesAreCharactersOfTheValue) {
    PourInto(PageForEach(), QByteArray("K,V\r\na\0b,1\0\r\n", 13));
    EXPECT_EQ(Pages(), QStringList{QStringLiteral("a%1b|1%1").arg(QChar(0))});
}

TEST_F(BadTable, FolderIsAFailure) {
    FormText form = PageForEach();
    Show(form.Data(1, {S("k=old"), S("v=1")}));
    EXPECT_EQ(FailureOf([&] { Import(*m_document, Path(S("DRIVERS/meter"))); }), 75);
    RecoverFromFailedPass(*m_document);
    EXPECT_EQ(TextAt(1), S("old"));
    EXPECT_FALSE(QFile::exists(Path(S("temporary/import1.csv"))));
}

TEST_F(BadTable, TenThousandColumnsAreBoundOnce) {
    constexpr int kColumns = 10'000;
    FormText form;
    form.Page(S("A"));
    for (int field = 1; field <= 60; ++field)
        form.Field(S("f%1").arg(field), {S("DataSource=nobody,DRIVERS\\meter;x(\";\"),DRIVERS\\other;c%1,"
                                           "DRIVERS\\meter")
                                             .arg(field * 100)});
    Show(form.Data(1, {}));
    QByteArray table = Columns(kColumns) + "\r\n";
    for (int record = 1; record <= 3; ++record)
        table += QByteArray("x,").repeated(kColumns - 1) + QByteArray::number(record) + "\r\n";
    const ImportResult result = Import(*m_document, WriteTable(table));
    EXPECT_EQ(result.columns, 60);
    EXPECT_EQ(TextAt(1), S("x"));
    EXPECT_EQ(TextAt(60), S("x"));
}

TEST_F(BadTable, FieldMayTakeTenThousandColumns) {
    FormText form;
    form.Page(S("A")).Field(S("f"), {S("DataSource=*,DRIVERS\\meter")});
    const QByteArray values = QByteArray("x,").repeated(9'999) + "last\r\n";
    Show(form.Data(1, {}));
    EXPECT_EQ(Import(*m_document, WriteTable(Columns(10'000) + "\r\n" + values)).columns, 10'000);
    EXPECT_EQ(TextAt(1), S("last"));
}

TEST_F(BadTable, ColumnsBeyondTheLimitAreOutOfReach) {
    FormText form;
    form.Page(S("A")).Field(S("f"), {S("DataSource=*,DRIVERS\\meter")}).Data(1, {});
    Show(form);
    const QByteArray values = QByteArray("x,").repeated(32'767) + "beyond\r\n";
    EXPECT_EQ(Import(*m_document, WriteTable(Columns(32'768) + "\r\n" + values)).columns, 32'767);
    EXPECT_EQ(TextAt(1), S("x"));
}

TEST_F(BadTable, OneLineMayHaveFiftyMegabytes) {
    constexpr qsizetype kLong = 50'000'000;
    PourInto(PageForEach(), "K,V\r\na,1\r\nb,2," + QByteArray("3,").repeated(kLong / 2) + "\r\nc,4\r\n");
    EXPECT_EQ(Pages(), (QStringList{S("a|1"), S("b|2"), S("c|4")}));
    FormText form = PageForEach();
    Show(form.Data(1, {}));
    const QByteArray value = QByteArray(kLong, 'x');
    EXPECT_EQ(Import(*m_document, WriteTable("K,V\r\n" + value + ",1\r\n")).records, 1);
    EXPECT_EQ(TextAt(1).size(), kLong);
}

TEST_F(BadTable, HeaderMayHaveFiftyMegabytes) {
    FormText form;
    form.Page(S("A")).Field(S("f"), Takes(S("K")));
    PourInto(form, QByteArray(50'000'000, 'x') + ",K\r\n1,2\r\n");
    EXPECT_EQ(TextAt(1), S("2"));
}

// A second program goes on writing while the first records come in.
TEST_F(BadTable, WhatIsWrittenMeanwhileIsNeitherReadNorKept) {
    FormText form = PageForEach();
    Show(form.Data(1, {}));
    const QString table = WriteTable("K,V\r\na,1\r\nb,2\r\n");
    m_ui.onStopQuestion = [&] {
        Append(table, "c,3\r\n");
        return false;
    };
    EXPECT_EQ(Import(*m_document, table).records, 2);
    EXPECT_EQ(Pages(), (QStringList{S("a|1"), S("b|2")}));
    EXPECT_EQ(Kept(1), "K,V\r\na,1\r\nb,2\r\n");
    EXPECT_TRUE(ApplicationTest::Read(S("DRIVERS/meter/Data/table.csv")).endsWith("c,3\r\n"));
}

TEST_F(BadTable, BothPagesOfAPairAreFilledFromTheSameBytes) {
    FormText form;
    form.Page(S("First")).Field(S("k"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
    form.Page(S("Second")).Field(S("l"), Takes(S("K"), 0, {S("NewPageOnReoccur=True")}));
    Show(form.Data(1, {}));
    Write(S("temporary/linkedpages.txt"), "First|Second\r\n");
    const QString table = WriteTable("K\r\na\r\nb\r\n");
    m_ui.onStopQuestion = [&] {
        QFile::remove(table);
        return false;
    };
    EXPECT_EQ(Import(*m_document, table).records, 4);
    EXPECT_EQ(Pages(), (QStringList{S("a"), S("a"), S("b"), S("b")}));
    EXPECT_EQ(Kept(1), Kept(2));
}

TEST_F(BadTable, PagesBeyondTheLimitAreAFailureAndTheOthersStay) {
    QByteArray table("K,V\r\n");
    for (int record = 1; record <= 32'768; ++record)
        table += QByteArray::number(record) + ",x\r\n";
    FormText form = PageForEach();
    Show(form.Data(1, {}));
    EXPECT_EQ(FailureOf([&] { Import(*m_document, WriteTable(table)); }), 6);
    EXPECT_EQ(m_document->Pages, 32'767);
    RecoverFromFailedPass(*m_document);
    EXPECT_EQ(ValuesOf(1), S("1|x"));
    EXPECT_EQ(ValuesOf(32'767), S("32767|x"));
    EXPECT_EQ(TextAt(1), S("32767"));
}

}  // namespace
}  // namespace sheetwright

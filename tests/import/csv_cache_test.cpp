#include "import/csv_cache.h"

#include "import/csv_table.h"
#include "support/short_text.h"
#include "support/test_application.h"

namespace sheetwright {

namespace {

class CsvCacheTest : public ApplicationTest {
  protected:
    [[nodiscard]] QString FirstOf(const QString& path) {
        const std::shared_ptr<CsvTable> table = m_cache.Open(path);
        table->MoveFirst();
        return table->Columns().At(1).Value();
    }

    CsvCache m_cache;
};

TEST_F(CsvCacheTest, TableIsReadOnce) {
    const QString path = Write(S("Lists/a.csv"), "A\n1\n");
    const std::shared_ptr<CsvTable> table = m_cache.Open(path);
    EXPECT_EQ(m_cache.Open(path), table);
    EXPECT_EQ(FirstOf(path), S("1"));
}

TEST_F(CsvCacheTest, FileThatHasChangedIsReadAnew) {
    const QString path = Write(S("a.csv"), "A\n1\n");
    EXPECT_EQ(FirstOf(path), S("1"));
    Write(S("a.csv"), "A\n22\n");
    EXPECT_EQ(FirstOf(path), S("22"));
}

TEST_F(CsvCacheTest, SoIsOneWhoseTypesCameOrChanged) {
    const QString path = Write(S("a.csv"), "A\n1\n");
    const auto type = [&] { return m_cache.Open(path)->Columns().At(1).DataType(); };
    EXPECT_EQ(type(), S("TEXT"));
    Write(S("a.inf"), "[A]\nDataType=DATE\n");
    EXPECT_EQ(type(), S("DATE"));
    Write(S("a.inf"), "[A]\nDataType=NUMBER\n");
    EXPECT_EQ(type(), S("NUMBER"));
}

TEST_F(CsvCacheTest, StoredNamesAreFoundInAnyCase) {
    const QString path = Write(S("LISTS/Stock.CSV"), "A\n1\n");
    const QString stored = path.left(path.size() - 15) + S("lists\\stock.csv");
    EXPECT_EQ(FirstOf(stored), S("1"));
    EXPECT_EQ(m_cache.Open(stored), m_cache.Open(stored));
}

TEST_F(CsvCacheTest, FileThatIsNotThereOrHasGoneRaises53) {
    EXPECT_EQ(FailureOf([&] { (void)m_cache.Open(Path(S("none.csv"))); }), 53);
    const QString path = Write(S("a.csv"), "A\n1\n");
    EXPECT_EQ(FirstOf(path), S("1"));
    QFile::remove(path);
    EXPECT_EQ(FailureOf([&] { (void)m_cache.Open(path); }), 53);
}

TEST_F(CsvCacheTest, OfManyTablesTheFirstAreKept) {
    constexpr int kTables = 100;
    const auto path = [&](int number) { return Path(S("%1.csv").arg(number)); };
    std::vector<std::shared_ptr<CsvTable>> tables;
    for (int number = 0; number < kTables; ++number) {
        Write(S("%1.csv").arg(number), "A\n1\n");
        tables.push_back(m_cache.Open(path(number)));
    }
    EXPECT_EQ(m_cache.Open(path(0)), tables.front());
    EXPECT_NE(m_cache.Open(path(kTables - 1)), tables.back());
}

}  // namespace

}  // namespace sheetwright

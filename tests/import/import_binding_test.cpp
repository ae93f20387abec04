#include "import/import_binding.h"

#include "import/import_fixture.h"

namespace sheetwright {
namespace {

class ImportBindingTest : public ImportTest {
  protected:
    // The columns of the binding in order, each with the elements that take it: "A:1,2,C1".
    [[nodiscard]] static QStringList Told(const ImportBinding& binding) {
        QStringList told;
        for (const BoundColumn& column : binding.columns) {
            QStringList elements;
            for (const BoundElement& element : column.elements)
                elements << (element.isField ? QString() : S("C")) + QString::number(element.number);
            told << column.column->Name() + u':' + elements.join(u',');
        }
        return told;
    }
    ImportBinding Bind(FormText& form, const QByteArray& header) {
        Show(form);
        m_table.SetFileName(WriteTable(header));
        ProgressBar bar(m_ui);
        return BindColumns(*m_document, m_table, S("DRIVERS/meter"), bar);
    }

    CsvTable m_table;
};

TEST_F(ImportBindingTest, ColumnsGoToFieldsThenToCheckBoxes) {
    FormText form;
    form.Page(S("A")).CheckBox(S("c"), Takes(S("Passed"))).Field(S("x"), Takes(S("Name")));
    form.Field(S("y"), Takes(S("Passed"))).Field(S("z"), Takes(S("name"))).Field(S("plain")).Data(1, {});
    EXPECT_EQ(Told(Bind(form, "Passed,Other,Name\r\n")), (QStringList{S("Passed:2,C1"), S("Name:1,3")}));
}

TEST_F(ImportBindingTest, AnyColumnOfTheDriverFitsAStar) {
    FormText form;
    form.Page(S("A")).Field(S("x"), {S("DataSource=*,drivers\\METER")});
    form.Field(S("y"), {S("DataSource=*,DRIVERS\\other")})
        .Field(S("z"), {S("DataSource=q,w;B,DRIVERS\\meter")});
    EXPECT_EQ(Told(Bind(form.Data(1, {}), "A,B\r\n")), (QStringList{S("A:1"), S("B:1,3")}));
}

TEST_F(ImportBindingTest, OfColumnsWithEqualNamesTheFirstCounts) {
    FormText form;
    form.Page(S("A")).Field(S("x"), Takes(S("A"))).Field(S("y"), Takes(S("B"))).Data(1, {});
    EXPECT_EQ(Told(Bind(form, "A,B,a,A\r\n")), (QStringList{S("A:1"), S("B:2")}));
}

TEST_F(ImportBindingTest, LaterColumnOfALevelReplacesTheEarlier) {
    FormText form;
    form.Page(S("A")).Field(S("x"), Takes(S("A"), 0, {S("KeyLevel=1")}));
    form.Field(S("y"), Takes(S("B"), 0, {S("KeyLevel=3")}))
        .Field(S("z"), Takes(S("C"), 0, {S("KeyLevel=1")}));
    form.Field(S("n"), Takes(S("D"), 0, {S("KeyLevel=-1")}))
        .CheckBox(S("c"), Takes(S("D"), 0, {S("KeyLevel=2")}));
    EXPECT_EQ(Bind(form.Data(1, {}), "A,B,C,D\r\n").keys, (QStringList{S("C"), S(""), S("B")}));
}

TEST_F(ImportBindingTest, BadKeysOfARecordAreIgnored) {
    FormText form;
    form.Page(S("A")).Field(S("x"), Takes(S("A"), 0, {S("KeyLevel=99999")}));
    form.Field(S("y"), Takes(S("A"), 0, {S("MultiRecordIndex=99999")}));
    form.Field(S("z"), Takes(S("A"), 0, {S("-MultiRecordIndex")}));
    const ImportBinding binding = Bind(form.Data(1, {}), "A\r\n");
    EXPECT_TRUE(binding.keys.isEmpty());
    ASSERT_EQ(Told(binding), QStringList{S("A:1,2,3")});
    EXPECT_FALSE(binding.columns[0].elements[1].line);
    EXPECT_EQ(binding.columns[0].elements[2].line, 0);
}

TEST_F(ImportBindingTest, BarMovesAfterEachTwentyColumns) {
    FormText form;
    form.Page(S("A")).Field(S("x")).Data(1, {});
    QByteArray header("c1");
    for (int column = 2; column <= 50; ++column)
        header += ",c" + QByteArray::number(column);
    Show(form);
    Forget();
    m_table.SetFileName(WriteTable(header + "\r\n"));
    ProgressBar bar(m_ui);
    (void)BindColumns(*m_document, m_table, S("DRIVERS/meter"), bar);
    EXPECT_EQ(m_ui.progress, (std::vector<int>{40, 80}));
}

TEST_F(ImportBindingTest, MissingKeyLevelsTakeTheNameSeenLast) {
    QStringList keys{S(""), S(""), S("A"), S(""), S("B"), S("")};
    EXPECT_TRUE(FillKeyLevels(keys));
    EXPECT_EQ(keys, (QStringList{S("A"), S("A"), S("A"), S("A"), S("B"), S("B")}));
    EXPECT_FALSE(FillKeyLevels(keys));
    QStringList none;
    EXPECT_FALSE(FillKeyLevels(none));
}

TEST_F(ImportBindingTest, KeyColumnsLeadInTheOrderOfTheirLevels) {
    FormText form;
    form.Page(S("A")).Field(S("a"), Takes(S("A"))).Field(S("b"), Takes(S("B"), 0, {S("KeyLevel=2")}));
    form.Field(S("c"), Takes(S("C"))).Field(S("d"), Takes(S("D"), 0, {S("KeyLevel=1")})).Data(1, {});
    ImportBinding binding = Bind(form, "A,B,C,D\r\n");
    PutKeysFirst(binding);
    EXPECT_EQ(Told(binding), (QStringList{S("D:4"), S("B:2"), S("A:1"), S("C:3")}));
    EXPECT_EQ(SortListOf(binding.keys), (QStringList{S("D"), S("B")}));
}

TEST_F(ImportBindingTest, NameOnTwoLevelsStandsAtTheLast) {
    FormText form;
    form.Page(S("A")).Field(S("a"), Takes(S("A"), 0, {S("KeyLevel=2")})).Field(S("b"), Takes(S("B")));
    ImportBinding binding = Bind(form.Data(1, {}), "A,B\r\n");
    EXPECT_TRUE(FillKeyLevels(binding.keys));
    PutKeysFirst(binding);
    EXPECT_EQ(Told(binding), (QStringList{S("B:2"), S("A:1")}));
    EXPECT_EQ(SortListOf(binding.keys), QStringList{S("A")});
}

}  // namespace
}  // namespace sheetwright

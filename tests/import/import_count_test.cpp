#include "import/import_fixture.h"

namespace sheetwright {
namespace {

using ImportCount = ImportTest;

TEST_F(ImportCount, PageThatBeginsTheSecondRunOfAPairIsAnAddedOne) {
    FormText form;
    form.Page(S("First")).Field(S("k"), Takes(S("K"))).Page(S("Second")).Field(S("l"), Takes(S("K")));
    Show(form.Data(1, {}));
    Write(S("temporary/linkedpages.txt"), "First|Second\r\n");
    const ImportResult result = Import(*m_document, WriteTable("K\r\na\r\n"));
    EXPECT_EQ(m_document->Pages, 2);
    EXPECT_EQ(result.pagesAdded, 1);
    EXPECT_EQ(result.records, 2) << "each record is read by both runs";
    EXPECT_EQ(result.columns, 1);
}

TEST_F(ImportCount, PageThatIsThereForTheSecondRunIsNone) {
    FormText form;
    form.Page(S("First")).Field(S("k"), Takes(S("K"))).Page(S("Second")).Field(S("l"), Takes(S("K")));
    Show(form.Data(1, {}).Data(2, {}));
    Write(S("temporary/linkedpages.txt"), "First|Second\r\n");
    EXPECT_EQ(Import(*m_document, WriteTable("K\r\na\r\n")).pagesAdded, 0);
}

}  // namespace
}  // namespace sheetwright

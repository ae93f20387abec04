#include "fields/editing_entry.h"

#include "core/folders.h"
#include "support/page_of_elements.h"

namespace sheetwright {
namespace {

using EditingAList = PageOfElements;

TEST_F(EditingAList, AFieldWithAListIsACombo) {
    AddField(S("B"), {S("List=A,B,C")});
    AddField(S("x"), {S("FieldType=2"), S("List=A,x")});
    Enter(1);
    EXPECT_EQ(m_page.Entry.FieldType(), field_type::kCombo);
    EXPECT_EQ(m_page.Entry.ListCount(), 3);
    EXPECT_EQ(m_page.Entry.ListIndex(), 1);
    EXPECT_EQ(m_page.Entry.Value(), S("B"));
    EXPECT_EQ(m_page.Entry.SelText(), S("B"));
    Enter(2);
    EXPECT_EQ(m_page.Entry.FieldType(), field_type::kCombo) << "whatever the design says";
    EXPECT_EQ(m_page.Entry.ListCount(), 2) << "nothing stays of the list before";
}

TEST_F(EditingAList, AnItemOrAnyOtherTextIsTaken) {
    AddField({}, {S("List=A,B,C")});
    Enter(1);
    m_page.Entry.ReportPick(2);
    Unselect(m_document);
    EXPECT_EQ(TextOf(1), S("C"));
    EXPECT_EQ(Type(1, S("else")), S("else"));
}

TEST_F(EditingAList, TheListFileIsTheDocumentsWhileTheFieldIsEdited) {
    Write(S("LISTS/people.csv"), "Name,Town\r\nAnn,Ayr\r\nBob,Bath\r\n");
    SetListFolder(*m_application, m_folder.path());
    AddField({}, {S("List=@LISTS\\people,Name")});
    AddField();
    Enter(1);
    EXPECT_EQ(m_page.Entry.ListCount(), 2);
    ASSERT_NE(m_document.EntryList, nullptr);
    EXPECT_EQ(m_document.EntryList, m_page.Entry.ListTable());
    Enter(2);
    EXPECT_EQ(m_document.EntryList, nullptr);
    EXPECT_EQ(m_page.Entry.ListTable(), nullptr);
    EXPECT_EQ(m_page.Entry.ListCount(), 0);
    Enter(1);
    TypeKey(key::kEscape);
    EXPECT_EQ(m_document.EntryList, nullptr);
}

TEST_F(EditingAList, AMissingListFileIsNoFailure) {
    AddField(S("a"), {S("List=@LISTS\\nowhere,1")});
    Enter(1);
    EXPECT_EQ(m_page.Entry.FieldType(), field_type::kCombo);
    EXPECT_EQ(m_page.Entry.ListCount(), 0);
    EXPECT_EQ(m_document.EntryList, nullptr);
    EXPECT_EQ(m_ui.MessageTexts(), QStringList());
}

}  // namespace
}  // namespace sheetwright

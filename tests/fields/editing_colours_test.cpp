#include "fields/editing_colours.h"

#include "support/page_of_elements.h"

namespace sheetwright {
namespace {

using FieldColours = PageOfElements;

TEST_F(FieldColours, TheEditorHasTheSelectedColours) {
    AddField(S("a"), {S("ForeColor=99")});
    Enter(1);
    EXPECT_EQ(m_page.Entry.BackColor(), 0xFFFFFFU);
    EXPECT_EQ(m_page.Entry.ForeColor(), 99U) << "the field's own until a person chooses one";
    Unselect(m_document);
    SetPreference(S("SelectedBackColor"), S("65535"));
    SetPreference(S("SelectedForeColor"), S("128"));
    Enter(1);
    EXPECT_EQ(m_page.Entry.BackColor(), 65535U);
    EXPECT_EQ(m_page.Entry.ForeColor(), 128U);
}

TEST_F(FieldColours, NonsenseInTheSettingsReadsAsTheDefault) {
    AddField();
    m_frame.blankTicked = true;
    for (const char* text : {"blue", "", "-1", "16777216", "1e3", "99999999999999999999"}) {
        for (const char* key : {"SelectedBackColor", "SelectedForeColor", "BlankBackColor"})
            SetPreference(S(key), S(text));
        UpdateColors(m_document);
        EXPECT_EQ(m_page.Entry.BackColor(), 0xFFFFFFU) << text;
        EXPECT_EQ(m_page.Entry.ForeColor(), 0U) << text;
        EXPECT_EQ(m_page.Entries.At(1).backColor, 255U) << text;
    }
}

TEST_F(FieldColours, ACheckBoxHasTheSelectedColoursWhileItIsCurrent) {
    SetPreference(S("SelectedBackColor"), S("65535"));
    SetPreference(S("SelectedForeColor"), S("128"));
    AddCheck({S("ForeColor=77")});
    AddField();
    m_document.surfaces->picForm.BackColor = 0x123456;
    Checks_Click(m_document, 1);
    EXPECT_EQ(Check(1).BackColor(), 65535U);
    EXPECT_EQ(Check(1).ForeColor(), 128U);
    SetPreference(S("SelectedBackColor"), S("1"));
    UpdateColors(m_document);
    EXPECT_EQ(Check(1).BackColor(), 1U);
    Enter(1);
    EXPECT_EQ(Check(1).BackColor(), 0x123456U) << "the page's";
    EXPECT_EQ(Check(1).ForeColor(), 77U) << "its own";
}

TEST_F(FieldColours, BlanksAreMarkedWhenThatIsWanted) {
    AddField(S("full"));
    AddField();
    HighlightBlanks(m_document);
    EXPECT_EQ(m_page.Entries.At(2).backColor, 0xFFFFFFU);
    EXPECT_EQ(m_window.calls, QStringList()) << "nothing changed";
    m_frame.blankTicked = true;
    HighlightBlanks(m_document);
    EXPECT_EQ(m_page.Entries.At(1).backColor, 0xFFFFFFU);
    EXPECT_EQ(m_page.Entries.At(2).backColor, 255U);
    HighlightBlanks(m_document);
    EXPECT_EQ(m_window.calls, QStringList{S("ElementChanged 2")}) << "told once";
    SetPreference(S("BlankBackColor"), S("65280"));
    UpdateColors(m_document);
    EXPECT_EQ(m_page.Entries.At(2).backColor, 65280U);
    m_frame.blankTicked = false;
    UpdateColors(m_document);
    EXPECT_EQ(m_page.Entries.At(2).backColor, 0xFFFFFFU);
}

TEST_F(FieldColours, AFieldTurnsBlankOnlyWhenItIsLeft) {
    AddField(S("full"));
    m_frame.blankTicked = true;
    Enter(1);
    m_page.Entry.ReportText({});
    EXPECT_EQ(m_page.Entries.At(1).backColor, 0xFFFFFFU);
    Unselect(m_document);
    EXPECT_EQ(m_page.Entries.At(1).backColor, 255U);
    EXPECT_EQ(Type(1, S("full")), S("full"));
    EXPECT_EQ(m_page.Entries.At(1).backColor, 0xFFFFFFU);
}

}  // namespace
}  // namespace sheetwright

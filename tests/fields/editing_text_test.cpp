#include "fields/editing_text.h"

#include "support/page_of_elements.h"

namespace sheetwright {
namespace {

using EditingADate = PageOfElements;

TEST_F(EditingADate, IsEditedAsADate) {
    AddDate(S("31/12/2003"), S("Long Date"));
    Enter(1);
    EXPECT_EQ(m_page.Entry.FieldType(), field_type::kDate);
    EXPECT_EQ(m_page.Entry.Value(), S("31/12/2003"));
    EXPECT_TRUE(m_page.Entry.cbo_date().Visible);
    EXPECT_EQ(m_page.Entry.dtpDate().Format, DateChild::DateFormat::Long);
}

struct TypedDate {
    const char* typed;
    const char* taken;
};

class TypingADate : public PageOfElements, public ::testing::WithParamInterface<TypedDate> {};

TEST_P(TypingADate, IsTakenInTheOrderOfTheLocale) {
    AddDate(S("1/1/1980"));
    EXPECT_EQ(Type(1, S(GetParam().typed)), S(GetParam().taken));
    EXPECT_TRUE(IsMarkedChanged());
}

INSTANTIATE_TEST_SUITE_P(
    DayMonthYear, TypingADate,
    ::testing::Values(TypedDate{"31/12/2003", "31/12/2003"}, TypedDate{"1/2/2003", "01/02/2003"},
                      TypedDate{"1-2-3", "01/02/2003"}, TypedDate{"31.12.99", "31/12/1999"},
                      TypedDate{"311203", "31/12/2003"}, TypedDate{"31122003", "31/12/2003"},
                      TypedDate{" 31 12 2003 ", "31/12/2003"}, TypedDate{"5 Jan 99", "05/01/1999"},
                      TypedDate{"31 December 2003", "31/12/2003"},
                      TypedDate{"Wednesday, 31 December 2003", "31/12/2003"},
                      TypedDate{"2003-12-31", "20/03/1231"}, TypedDate{"32/13/2003", "30/12/1899"},
                      TypedDate{"99999999", "30/12/1899"}, TypedDate{"abc 7", "30/12/1899"},
                      TypedDate{"tomorrow", ""}, TypedDate{"", ""}));

TEST_F(EditingADate, IsTakenInTheOrderOfAnotherLocale) {
    m_application->conventions = ConventionsOf(QLocale(QLocale::Swedish, QLocale::Sweden));
    AddDate();
    EXPECT_EQ(Type(1, S("2003-12-31")), S("2003-12-31"));
    EXPECT_EQ(Type(1, S("20031231")), S("2003-12-31"));
    m_application->conventions = ConventionsOf(QLocale(QLocale::English, QLocale::UnitedStates));
    m_application->conventions.SystemDateMask = S("M/D/C");
    m_application->conventions.DateMask = S("M/D/C");
    EXPECT_EQ(Type(1, S("12/31/2003")), S("12/31/2003"));
    EXPECT_EQ(Type(1, S("January 5, 2003")), S("01/05/2003"));
}

TEST_F(EditingADate, SurvivesThatItsFieldIsVisited) {
    for (const char* mask : {"Long Date", "Short Date", "Medium Date"}) {
        const int date = AddDate({}, S(mask));
        const QString shown = Type(date, S("5/1/2003"));
        SetChanged(false);
        EXPECT_EQ(Visit(date), shown) << mask;
        EXPECT_FALSE(m_document.Changed) << mask;
    }
    EXPECT_EQ(TextOf(1), S("Sunday, 5 January 2003"));
}

TEST_F(EditingADate, AMaskWithoutTheWordDateIsAnyMask) {
    AddField({}, {S("FieldType=2"), S("Format=dd/mm/yyyy")});
    EXPECT_EQ(Type(1, S("5/1/2003")), S("05/01/2003"));
    EXPECT_EQ(Type(1, S("soon")), S("soon"));
    AddField({}, {S("FieldType=2")});
    EXPECT_EQ(Type(2, S("5/1/2003")), S("5/1/2003")) << "without a mask as typed";
}

TEST_F(EditingADate, ADateMaskWorksInATextFieldToo) {
    AddField({}, {S("Format=Short Date")});
    EXPECT_EQ(Type(1, S("311203")), S("31/12/2003"));
}

TEST_F(EditingADate, WithoutDigitsAnEmptyDateStaysUnchanged) {
    AddDate();
    Type(1, S("x"));
    EXPECT_EQ(TextOf(1), S(""));
    EXPECT_FALSE(m_document.Changed);
}

TEST_F(EditingADate, BackspaceBlanksTheDateAndGoesOn) {
    AddDate(S("31/12/2003"));
    AddField(S("next"));
    Enter(1);
    EXPECT_EQ(TypeKey(key::kBackspace), 0);
    EXPECT_EQ(TextOf(1), S(""));
    EXPECT_EQ(Current(), S("2"));
    EXPECT_EQ(m_page.Entry.Value(), S("next"));
    EXPECT_TRUE(IsMarkedChanged());
    Unselect(m_document);
    EXPECT_EQ(TextOf(1), S(""));
    EXPECT_EQ(TextOf(2), S("next"));
}

TEST_F(EditingADate, BackspaceInTheOnlyFieldLeavesItBlank) {
    AddDate(S("31/12/2003"));
    Enter(1);
    TypeKey(key::kBackspace);
    EXPECT_EQ(Current(), S("1"));
    EXPECT_EQ(m_page.Entry.Value(), S(""));
    Unselect(m_document);
    EXPECT_EQ(TextOf(1), S(""));
}

TEST_F(EditingADate, BackspaceInAnEmptyDateMarksNothing) {
    AddDate();
    AddField();
    m_frame.blankTicked = true;
    Enter(1);
    TypeKey(key::kBackspace);
    EXPECT_FALSE(m_document.Changed);
    EXPECT_EQ(Current(), S("2"));
    EXPECT_EQ(m_page.Entries.At(1).backColor, 255U);
}

TEST_F(EditingADate, OnlyTextElementsTakeTexts) {
    AddCheck();
    TakeText(m_document, kCheck1, S("1"), {});
    TakeText(m_document, {ElementKind::Entry, 5}, S("1"), {});
    TakeText(m_document, {ElementKind::Entry, 0}, S("1/1/2000"), S("Short Date"));
    EXPECT_FALSE(m_document.Changed);
}

}  // namespace
}  // namespace sheetwright

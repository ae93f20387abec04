#include "ui/element_recordings.h"

#include "document/document.h"
#include "document/page.h"
#include "print/fonts.h"
#include "print/form_surfaces.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <limits>

namespace sheetwright {
namespace {

class ElementRecordingsTest : public ApplicationTest {
  protected:
    ElementRecordingsTest() : m_document(*m_application), m_elements(m_document) {
        m_document.surfaces->picForm.SetWidth(12000);
        m_document.surfaces->picForm.SetHeight(15000);
    }

    TextElement& Add(const QString& text) {
        TextElement entry;
        entry.text = text;
        entry.place = {1000, 1000, 3000, 300};
        return m_document.page->Entries.Load(entry);
    }

    frmSheetwright m_document;
    ElementRecordings m_elements;
};

TEST_F(ElementRecordingsTest, RecordsAllAtFirst) {
    Add(S("one"));
    Add(S("two")).isVisible = false;
    EXPECT_EQ(m_elements.Refresh().size(), 1U);
    ASSERT_EQ(m_elements.Of(ElementKind::Entry).size(), 2U);
    EXPECT_NE(m_elements.Of(ElementKind::Entry)[0].recording, nullptr);
    EXPECT_EQ(m_elements.Of(ElementKind::Entry)[1].recording, nullptr);
    EXPECT_TRUE(m_elements.Refresh().empty());
}

TEST_F(ElementRecordingsTest, RecordsAgainOnlyWhatWasForgotten) {
    Add(S("one"));
    Add(S("two"));
    m_elements.Refresh();
    const auto first = m_elements.Of(ElementKind::Entry)[0].recording;
    const auto second = m_elements.Of(ElementKind::Entry)[1].recording;
    m_document.page->Entries.At(2).text = S("three");
    m_elements.Forget({ElementKind::Entry, 2});
    EXPECT_EQ(m_elements.Refresh().size(), 1U);
    EXPECT_EQ(m_elements.Of(ElementKind::Entry)[0].recording, first);
    EXPECT_NE(m_elements.Of(ElementKind::Entry)[1].recording, second);
}

TEST_F(ElementRecordingsTest, WhatIsForgottenTwiceIsRecordedOnce) {
    Add(S("one"));
    Add(S("two"));
    m_elements.Refresh();
    for (const int number : {1, 2, 1, 2})
        m_elements.Forget({ElementKind::Entry, number});
    EXPECT_EQ(m_elements.Refresh().size(), 2U);
    m_elements.Forget({ElementKind::Entry, 1});
    EXPECT_EQ(m_elements.Refresh().size(), 1U);
}

TEST_F(ElementRecordingsTest, ElementThatIsGoneDoesNoHarm) {
    Add(S("one"));
    m_elements.Refresh();
    m_document.page->Entries.UnloadAll();
    m_elements.Forget({ElementKind::Entry, 1});
    m_elements.Forget({ElementKind::Check, 7});
    m_elements.Refresh();
    EXPECT_EQ(m_elements.Of(ElementKind::Entry)[0].recording, nullptr);
    EXPECT_TRUE(m_elements.Reach({ElementKind::Check, 7}).isEmpty());
}

TEST_F(ElementRecordingsTest, ReachHoldsWhatStandsOutOfThePlace) {
    Recording recording;
    recording.Add(DrawnLine{100, 100, 500, 100, Pen{.width = 20}});
    recording.Add(DrawnText{1000, 1000, S("word"), {}, 0});
    const QRectF reach = ReachOf(recording, FontsOf(*m_application));
    EXPECT_LE(reach.left(), 80);
    EXPECT_LE(reach.top(), 80);
    EXPECT_GT(reach.right(), 1000 + FontsOf(*m_application).Width({}, S("word")));
    EXPECT_GT(reach.bottom(), 1000);
}

TEST_F(ElementRecordingsTest, NumbersThatAreNotFiniteReachNowhere) {
    Recording recording;
    recording.Add(DrawnLine{0, 0, std::numeric_limits<double>::infinity(), 10, {}});
    recording.Add(DrawnEllipse{std::numeric_limits<double>::quiet_NaN(), 0, 10, 10, {}, {}});
    EXPECT_TRUE(ReachOf(recording, FontsOf(*m_application)).isEmpty());
}

}  // namespace
}  // namespace sheetwright

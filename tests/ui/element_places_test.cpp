#include "ui/element_places.h"

#include "document/document.h"
#include "support/test_application.h"

namespace sheetwright {
namespace {

class ElementPlaces : public ApplicationTest {
  protected:
    ElementPlaces() : m_document(*m_application), m_page(*m_document.page) {}

    void AddText(const Extent& place) {
        TextElement entry;
        entry.place = place;
        m_page.Entries.Load(entry);
    }
    void AddCheck(const Extent& place) { m_page.Checks.Load({nullptr, place}); }

    frmSheetwright m_document;
    Page& m_page;
};

TEST_F(ElementPlaces, LaterElementsLieOnTop) {
    AddText({0, 0, 100, 100});
    AddText({50, 50, 100, 100});
    EXPECT_EQ(TopmostAt(m_page, {75, 75}), (ElementRef{ElementKind::Entry, 2}));
    EXPECT_EQ(TopmostAt(m_page, {25, 25}), (ElementRef{ElementKind::Entry, 1}));
    EXPECT_TRUE(TopmostAt(m_page, {500, 500}).IsNone());
}

TEST_F(ElementPlaces, CheckBoxesLieOnTextsAndHiddenOnesOnNothing) {
    AddText({0, 0, 100, 100});
    AddCheck({0, 0, 100, 100});
    EXPECT_EQ(TopmostAt(m_page, {10, 10}), (ElementRef{ElementKind::Check, 1}));
    m_page.Checks.At(1).isVisible = false;
    EXPECT_EQ(TopmostAt(m_page, {10, 10}), (ElementRef{ElementKind::Entry, 1}));
}

TEST_F(ElementPlaces, ElementThatIsNotThereHasNoPlace) {
    for (const ElementRef element :
         {ElementRef{}, ElementRef{ElementKind::Check, 1}, ElementRef{ElementKind::Entry, -1}}) {
        EXPECT_FALSE(IsOnPage(m_page, element));
        EXPECT_FALSE(IsVisible(m_page, element));
        EXPECT_EQ(PlaceOf(m_page, element), Extent{});
    }
}

}  // namespace
}  // namespace sheetwright

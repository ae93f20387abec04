#pragma once

// Builds a page from a few elements.

#include "document/page_on_screen_test.h"

#include <functional>
#include <vector>

namespace sheetwright {

using Messages = std::vector<ShownMessage>;

class PageBuildingTest : public PageOnScreenTest {
  protected:
    using PageOnScreenTest::PageOnScreenTest;

    // A page of one design with these elements, shown without values.
    using Elements = std::function<void(FormText&)>;
    frmSheetwright& Build(const Elements& elements, const QStringList& pageChanges = {}) {
        FormText form;
        form.Page(S("Invoice"), pageChanges);
        elements(form);
        form.Data(1, {});
        return Show(form);
    }
    frmSheetwright& BuildField(const QStringList& changes) {
        return Build([&](FormText& form) { form.Field(S("A"), changes); });
    }
    frmSheetwright& BuildRecord(const QString& word, const QStringList& lines) {
        return Build([&](FormText& form) { form.Record(word, lines); });
    }
    [[nodiscard]] static QStringList PlaceAt(int left, int top, int width, int height) {
        return {S("AbsLeft=%1").arg(left), S("AbsTop=%1").arg(top), S("Width=%1").arg(width),
                S("Height=%1").arg(height)};
    }
    // Expects one message, which tells of this row alone.
    void ExpectOneFailure(const QString& error, const QString& line) {
        EXPECT_EQ(m_ui.messages, Messages{DesignMessage()});
        EXPECT_EQ(LogRows(), QStringList(DesignRow(error, line)));
    }
};

}  // namespace sheetwright

#include "ui/event_boundary.h"

#include "document/document.h"
#include "support/short_text.h"
#include "support/test_application.h"

namespace sheetwright {
namespace {

using EventBoundary = ApplicationTest;

TEST_F(EventBoundary, FailureIsToldAndLogged) {
    frmSheetwright document(*m_application);
    EXPECT_TRUE(Guarded(document, S("Form_Click"), [] {}));
    EXPECT_FALSE(Guarded(document, S("Form_Click"), [] { throw Failure(failure::kTypeMismatch); }));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(S("Error 13: Type mismatch")));
    ASSERT_EQ(ErrorRows().size(), 1U);
    EXPECT_EQ(ErrorRows()[0][3], S("Form_Click"));
}

TEST_F(EventBoundary, RunningOutOfMemoryIsAFailureToo) {
    frmSheetwright document(*m_application);
    EXPECT_FALSE(Guarded(document, S("Form_Click"), [] { throw std::bad_alloc(); }));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(S("Error 7: Out of memory")));
}

TEST_F(EventBoundary, PassThatFailedHalfWayGivesThePageBack) {
    frmSheetwright document(*m_application);
    Guarded(document, S("Form_KeyUp"), [&] {
        document.InterruptedPage = 1;
        document.DataPageNum = 7;
        throw Failure(failure::kOverflow);
    });
    EXPECT_EQ(document.DataPageNum, 1);
}

}  // namespace
}  // namespace sheetwright

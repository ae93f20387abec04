#include "document/undo.h"

#include "document/document.h"
#include "support/page_window.h"
#include "support/test_application.h"

namespace sheetwright {
namespace {

class Undo : public ApplicationTest {
  protected:
    Undo() : m_document(*m_application) {
        m_application->mainWindow = &m_frame;
        m_document.DataPageNum = 7;
    }

    RecordingMainWindow m_frame;
    frmSheetwright m_document;
};

TEST_F(Undo, ThePageIsStoredAsPage0) {
    std::vector<std::int16_t> stored;
    m_document.SavePageHook = [&] {
        stored.push_back(m_document.DataPageNum);
        EXPECT_FALSE(m_frame.undoEnabled) << "not before there is something to undo";
    };
    SetUndo(m_document);
    EXPECT_EQ(stored, std::vector<std::int16_t>{0});
    EXPECT_EQ(m_document.DataPageNum, 7);
    EXPECT_TRUE(m_frame.undoEnabled);
}

TEST_F(Undo, WhenStoringFailsThePageIsTheSameAndNothingCanBeUndone) {
    m_document.SavePageHook = [] { throw Failure(failure::kOutOfMemory); };
    EXPECT_EQ(FailureOf([&] { SetUndo(m_document); }), failure::kOutOfMemory);
    EXPECT_EQ(m_document.DataPageNum, 7);
    EXPECT_FALSE(m_frame.undoEnabled);
}

}  // namespace
}  // namespace sheetwright

#include "support/test_application.h"

namespace sheetwright {
namespace {

TEST(ProgressBar, IsShownUntilItIsHidden) {
    RecordingUserInterface ui;
    ProgressBar bar(ui);
    EXPECT_TRUE(ui.progressShown);
    bar.Hide();
    EXPECT_FALSE(ui.progressShown);
}

TEST(ProgressBar, MovesOnlyWhenTheWholePercentageDiffers) {
    RecordingUserInterface ui;
    ProgressBar bar(ui);
    for (int done = 0; done <= 1000; ++done)
        bar.Update(done, 1000);
    EXPECT_EQ(ui.progress.size(), 100U);
    EXPECT_EQ(ui.progress.front(), 1);
    EXPECT_EQ(ui.progress.back(), 100);
}

TEST(ProgressBar, IsCappedAtAHundred) {
    RecordingUserInterface ui;
    ProgressBar bar(ui);
    bar.Update(7, 5);
    bar.Update(8, 5);
    EXPECT_EQ(ui.progress, std::vector<int>{100});
}

TEST(ProgressBar, NothingToDoIsDone) {
    RecordingUserInterface ui;
    ProgressBar bar(ui);
    bar.Update(0, 0);
    EXPECT_EQ(ui.progress, std::vector<int>{100});
}

TEST(SilentUserInterface, NobodyChoosesAFile) {
    SilentUserInterface ui;
    FileDialog dialog;
    EXPECT_EQ(FailureOf([&] { ui.ShowOpen(dialog); }), failure::kCancelled);
}

TEST(SilentUserInterface, AnswersWithTheFirstButton) {
    SilentUserInterface ui;
    EXPECT_EQ(ui.ShowMessage({}, {}, MessageIcon::None, MessageButtons::Ok), MessageAnswer::Ok);
    EXPECT_EQ(ui.ShowMessage({}, {}, MessageIcon::None, MessageButtons::YesNo), MessageAnswer::Yes);
    EXPECT_EQ(ui.ShowMessage({}, {}, MessageIcon::None, MessageButtons::YesNoCancel), MessageAnswer::Yes);
}

}  // namespace
}  // namespace sheetwright

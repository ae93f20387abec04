#include "core/console_user_interface.h"

#include <gtest/gtest.h>

namespace sheetwright {

namespace {

// What a message prints on standard error.
std::string Shown(const char* text, const char* title, MessageIcon icon) {
    ConsoleUserInterface ui;
    ui.SetOwnTitle(QStringLiteral("Product"));
    testing::internal::CaptureStderr();
    ui.ShowMessage(QString::fromUtf8(text), QString::fromUtf8(title), icon, MessageButtons::Ok);
    return testing::internal::GetCapturedStderr();
}

}  // namespace

TEST(ConsoleUserInterface, ACriticalMessageIsAnError) {
    EXPECT_EQ(Shown("Error code 321", "Product", MessageIcon::Critical), "error: Error code 321\n");
}

TEST(ConsoleUserInterface, AnyOtherMessageIsAWarning) {
    EXPECT_EQ(Shown("Newer", "Product", MessageIcon::Exclamation), "warning: Newer\n");
    EXPECT_EQ(Shown("Newer", "", MessageIcon::None), "warning: Newer\n");
}

TEST(ConsoleUserInterface, ATitleOfItsOwnStandsBeforeTheText) {
    EXPECT_EQ(Shown("Disk full", "Unable to save file", MessageIcon::Critical),
              "error: Unable to save file: Disk full\n");
}

TEST(ConsoleUserInterface, AMessageOfSeveralLinesIsOneLineInUtf8) {
    EXPECT_EQ(Shown("größer\r\nals", "Product", MessageIcon::Critical), "error: größer als\n");
}

TEST(ConsoleUserInterface, ControlCharactersBecomeBlanksAndBlanksStay) {
    EXPECT_EQ(Shown("a  b.aff\x1B[2J\tc\n", "Product", MessageIcon::Critical), "error: a  b.aff [2J c\n");
}

TEST(ConsoleUserInterface, QuestionsAreAnsweredByTheirFirstButton) {
    ConsoleUserInterface ui;
    testing::internal::CaptureStderr();
    EXPECT_EQ(ui.ShowMessage(QString(), QString(), MessageIcon::Question, MessageButtons::YesNo),
              MessageAnswer::Yes);
    EXPECT_EQ(ui.ShowMessage(QString(), QString(), MessageIcon::Question, MessageButtons::Ok),
              MessageAnswer::Ok);
    testing::internal::GetCapturedStderr();
}

}  // namespace sheetwright

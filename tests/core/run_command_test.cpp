#include "core/run_command.h"

#include "support/test_application.h"

#include <QDir>

#include <new>

namespace sheetwright {

namespace {

class RunCommandTest : public ApplicationTest {};

TEST_F(RunCommandTest, CommandThatSucceedsShowsAndLogsNothing) {
    bool hasRun = false;
    EXPECT_FALSE(RunCommand(*m_application, QStringLiteral("save"), [&] { hasRun = true; }));
    EXPECT_TRUE(hasRun);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(RunCommandTest, FailureIsShownByNumberAndTextUnderTheTitle) {
    const auto caught =
        RunCommand(*m_application, QStringLiteral("save"), [] { throw Failure(failure::kTypeMismatch); });
    ASSERT_TRUE(caught);
    EXPECT_EQ(caught->Number(), 13);
    ASSERT_EQ(m_ui.messages.size(), 1U);
    EXPECT_EQ(m_ui.messages[0], (ShownMessage{QStringLiteral("Error 13: Type mismatch"), m_application->Title,
                                              MessageIcon::Critical, MessageButtons::Ok}));
}

TEST_F(RunCommandTest, FailureIsLoggedUnderTheNameOfTheCommand) {
    RunCommand(*m_application, QStringLiteral("save"), [] { throw Failure(failure::kTypeMismatch); });
    const auto rows = ErrorRows();
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].at(3), QStringLiteral("save"));
    EXPECT_EQ(rows[0].at(4), QStringLiteral("13: Type mismatch"));
    EXPECT_EQ(rows[0].at(5), QString());
}

TEST_F(RunCommandTest, TextThatAFailureBringsIsShownAndLogged) {
    RunCommand(*m_application, QStringLiteral("open"),
               [] { throw Failure(1000, QStringLiteral("too many pages")); });
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Error 1000: too many pages")));
    EXPECT_EQ(ErrorRows().at(0).at(5), QStringLiteral("too many pages"));
}

TEST_F(RunCommandTest, TextWithTheSeparatorOfParametersIsNotCut) {
    RunCommand(*m_application, QStringLiteral("open"),
               [] { throw Failure(1000, QStringLiteral("a\u00A6%2\u00A6c")); });
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Error 1000: a|%2|c")));
    EXPECT_EQ(ErrorRows().at(0).at(5), QStringLiteral("a\u00A6%2\u00A6c"));
}

TEST_F(RunCommandTest, RunningOutOfMemoryIsFailureSeven) {
    const auto caught = RunCommand(*m_application, QStringLiteral("open"), [] { throw std::bad_alloc(); });
    ASSERT_TRUE(caught);
    EXPECT_EQ(caught->Number(), 7);
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Error 7: Out of memory")));
}

TEST_F(RunCommandTest, FailureIsShownThoughTheLogCannotBeWritten) {
    QDir(m_folder.path()).mkdir(QStringLiteral("errors.csv"));
    RunCommand(*m_application, QStringLiteral("open"), [] { throw Failure(failure::kDiskFull); });
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Error 61: Disk full")));
}

TEST_F(RunCommandTest, FailureIsShownInEnglishWhenTheDictionaryIsBroken) {
    m_application->LoadDictionary(Write(QStringLiteral("x.DIC"), "ENGLISH\r\nError %1: %2\r\n"));
    RunCommand(*m_application, QStringLiteral("open"), [] { throw Failure(failure::kDiskFull); });
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("61: Disk full")));
}

}  // namespace

}  // namespace sheetwright

#include "document/closing.h"

#include "document/document.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <algorithm>

namespace sheetwright {
namespace {

const ShownMessage& Question(const Application& application) {
    static const ShownMessage message{S("Save any changes?"), application.Title, MessageIcon::Question,
                                      MessageButtons::YesNoCancel};
    return message;
}

class Closing : public ApplicationTest {
  protected:
    explicit Closing(const QString& title = S("Tolvane Quillon Sheetwright"))
        : ApplicationTest(title), m_document(std::make_unique<frmSheetwright>(*m_application)) {
        m_document->Tag = S("/forms/sheet.aff");
        m_document->MyTempDir = S("/nowhere/1/");
    }

    bool Close() {
        return MayClose(*m_document, {[this] { m_calls << S("front"); },
                                      [this] {
                                          m_calls << S("save");
                                          if (m_saving) m_saving();
                                          m_document->Changed = m_staysChanged;
                                      },
                                      [this] {
                                          m_calls << S("save as");
                                          m_document->Changed = m_staysChanged;
                                      }});
    }
    [[nodiscard]] CommandStates States() const { return CommandStatesOf(*m_application, m_document.get()); }

    std::unique_ptr<frmSheetwright> m_document;
    QStringList m_calls;
    std::function<void()> m_saving;
    bool m_staysChanged = false;
};

TEST_F(Closing, AnUnchangedFormGoesWithoutAQuestion) {
    EXPECT_TRUE(Close());
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_TRUE(m_calls.isEmpty());
    EXPECT_EQ(m_application->CurrentTempDir, S("/nowhere/1/"));
}

TEST_F(Closing, AChangedFormIsAskedAbout) {
    m_document->Changed = true;
    m_ui.answers = {MessageAnswer::No};
    EXPECT_TRUE(Close());
    EXPECT_EQ(m_ui.messages, std::vector{Question(*m_application)});
    EXPECT_EQ(m_calls, QStringList{S("front")}) << "so that a person sees what the question is about";
    EXPECT_TRUE(m_document->Changed);
}

TEST_F(Closing, CancelKeepsItOpen) {
    m_document->Changed = true;
    m_ui.answers = {MessageAnswer::Cancel};
    EXPECT_FALSE(Close());
    EXPECT_FALSE(m_calls.contains(S("save")));
}

TEST_F(Closing, YesSaves) {
    m_document->Changed = true;
    EXPECT_TRUE(Close());
    EXPECT_EQ(m_calls, (QStringList{S("front"), S("save")}));
}

TEST_F(Closing, YesAsksForANameWhereOnlyThatIsPossible) {
    for (const char* tag : {"/templates/sheet.aft", "/forms/sheet.txt"}) {
        m_calls.clear();
        m_document->Changed = true;
        m_document->Tag = S(tag);
        EXPECT_TRUE(Close());
        EXPECT_EQ(m_calls, (QStringList{S("front"), S("save as")})) << tag;
    }
    m_document->Changed = true;
    m_document->Tag = S("/forms/sheet.aff");
    m_document->MyReadonly = true;
    m_calls.clear();
    EXPECT_TRUE(Close());
    EXPECT_EQ(m_calls, (QStringList{S("front"), S("save as")}));
}

TEST_F(Closing, WhatCouldNotBeSavedStaysOpen) {
    m_document->Changed = true;
    m_staysChanged = true;
    EXPECT_FALSE(Close());
    m_saving = [] { throw Failure(failure::kDiskFull); };
    EXPECT_FALSE(Close());
    EXPECT_TRUE(m_ui.messages.back().text.contains(S("61")));
}

TEST_F(Closing, AFailedRecalculationIsRecoveredFrom) {
    m_document->Changed = true;
    m_saving = [this] {
        m_document->InterruptedPage = 4;
        throw Failure(failure::kTypeMismatch);
    };
    EXPECT_FALSE(Close());
    EXPECT_EQ(m_document->DataPageNum, 4);
}

TEST_F(Closing, CommandsFollowTheFormInFront) {
    CommandStates states = States();
    EXPECT_TRUE(states.fileSave && states.fileSaveAs && states.fileClose);
    EXPECT_TRUE(states.filePreview && states.filePrint && states.page && states.addPageVisible);

    m_document->Tag = S("/templates/sheet.aft");
    states = States();
    EXPECT_FALSE(states.fileSave);
    EXPECT_TRUE(states.fileSaveAs);

    m_document->Tag = S("/forms/SHEET.AFF");
    EXPECT_TRUE(States().fileSave) << "in any case";

    m_document->MyReadonly = true;
    states = States();
    EXPECT_FALSE(states.fileSave);
    EXPECT_FALSE(states.addPageVisible);
    EXPECT_TRUE(states.fileSaveAs);
}

TEST_F(Closing, AfterTheLastFormNoCommandOfFormsIsLeft) {
    const CommandStates states = CommandStatesOf(*m_application, nullptr);
    EXPECT_FALSE(states.fileSave || states.fileSaveAs || states.fileClose || states.filePreview ||
                 states.filePrint || states.page);
    EXPECT_TRUE(states.addPageVisible);
}

TEST_F(Closing, NobodyIsToldOutsideReports) {
    TellFormClosed(*m_application);
    TellTerminated(*m_application);
    EXPECT_TRUE(m_ui.hostLines.isEmpty());
    EXPECT_EQ(m_ui.pumps, 0);
}

TEST_F(Closing, TheCloseBoxMinimisesWhereTheHostWantsNoClosing) {
    EXPECT_EQ(AnswerToClosing(true, true), FrameClosing::Minimise);
    EXPECT_EQ(AnswerToClosing(true, false), FrameClosing::Close);
    EXPECT_EQ(AnswerToClosing(false, true), FrameClosing::Close);
    EXPECT_EQ(AnswerToClosing(false, false), FrameClosing::Close);
}

TEST_F(Closing, WhatTheViewerLacks) {
    const auto names = [](std::span<const QStringView> list) {
        QStringList texts;
        for (const QStringView name : list)
            texts << name.toString();
        return texts;
    };
    EXPECT_EQ(names(MenusNotInViewer()),
              (QStringList{S("mnuPage"), S("mnuOptions"), S("mnuFileSave"), S("mnuFileSaveAs"),
                           S("mnuFileDiv1"), S("mnuFilePreview"), S("mnuFileNew"), S("MnuHelpTutor")}));
    EXPECT_EQ(names(ButtonsNotInViewer()), (QStringList{S("Save"), S("New"), S("Formulas"), S("AddPage")}));
}

class ClosingInViewer : public Closing {
  protected:
    ClosingInViewer() : Closing(S("Tolvane Ketterlin Professional Viewer")) {}
};

TEST_F(ClosingInViewer, NothingIsAsked) {
    m_document->Changed = true;
    EXPECT_TRUE(Close());
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(ClosingInViewer, FormsAreOpenedPrintedAndClosedOnly) {
    const CommandStates states = States();
    EXPECT_TRUE(states.fileClose && states.filePrint);
    EXPECT_FALSE(states.fileSave || states.fileSaveAs || states.filePreview || states.page ||
                 states.addPageVisible);
}

class ClosingInReport : public Closing {
  protected:
    ClosingInReport() : Closing(S("Tolvane Reports")) {}

    // A clock on which each look takes a quarter of a second.
    std::function<double()> Clock() {
        return [this] { return m_seconds += 0.25; };
    }

    double m_seconds = 100;
};

TEST_F(ClosingInReport, TheHostHearsOfEachFormAndHasASecond) {
    TellFormClosed(*m_application, Clock());
    EXPECT_EQ(m_ui.hostLines, QStringList{S("EVENT: FORMCLOSE")});
    EXPECT_GT(m_ui.pumps, 0);
    EXPECT_GE(m_seconds, 101);
}

TEST_F(ClosingInReport, TheHostHearsOfTheEndAndHasASecond) {
    TellTerminated(*m_application, Clock());
    EXPECT_EQ(m_ui.hostLines, QStringList{S("EVENT: TERMINATE")});
    EXPECT_GT(m_ui.pumps, 0);
    EXPECT_GE(m_seconds, 101);
}

}  // namespace
}  // namespace sheetwright

#include "ui/goto_dialog.h"

#include "dialog_test.h"
#include "document/page_moves.h"
#include "fields/navigation.h"
#include "form_window_test.h"

#include <QListWidget>
#include <QPushButton>
#include <QTimer>

namespace sheetwright {
namespace {

// Pages 1 to 3 have the designs Cover, Sheet and Sheet.
class GotoDialog : public FormWindowTest {
  protected:
    GotoDialog() {
        m_form.Page(S("Cover")).Field(S("client"), At(100, 100));
        m_form.Page(S("Sheet"))
            .Field(S("reading"), At(100, 100))
            .Field(S("sum"), At(100, 200) + QStringList{S("Formula=SETME(ADD(3,4))")});
        m_form.Data(1, {S("client=Ada")});
        m_form.Data(2, {S("reading=1"), S("sum=old")});
        m_form.Data(2, {S("reading=2"), S("sum=old")});
    }

    void SetUp() override { ASSERT_NO_FATAL_FAILURE(Open(m_form)); }
    void Load() {
        m_frame.calls.clear();
        m_dialog = std::make_unique<frmGoto>(Document(), m_window.get());
        ASSERT_NO_FATAL_FAILURE(ShowActive(*m_dialog));
    }

    [[nodiscard]] QListWidget& Pages() { return *m_dialog->findChild<QListWidget*>(S("lstPages")); }
    void Click(const char* name) {
        QTest::mouseClick(m_dialog->findChild<QPushButton*>(S(name)), Qt::LeftButton);
    }

    FormText m_form;
    std::unique_ptr<frmGoto> m_dialog;
};

TEST_F(GotoDialog, ListsAllPagesByNumberAndTitleOfTheirDesign) {
    Load();
    EXPECT_EQ(m_dialog->windowTitle(), S("Goto Page"));
    EXPECT_EQ(RowsOf(Pages()), (QStringList{S("1 - Cover"), S("2 - Sheet"), S("3 - Sheet")}));
    EXPECT_EQ(Pages().currentRow(), 0);
    EXPECT_TRUE(Pages().hasFocus());
}

TEST_F(GotoDialog, ThePageOnScreenIsSelected) {
    MoveToPage(Document(), 3);
    Load();
    EXPECT_EQ(Pages().currentRow(), 2);
    EXPECT_EQ(Pages().selectedItems().size(), 1);
}

TEST_F(GotoDialog, TheButtonMovesToTheSelectedPage) {
    Load();
    Pages().setCurrentRow(2);
    Click("cmdGoto");
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(Document().DataPageNum, 3);
    EXPECT_EQ(Text(1), S("2"));
    EXPECT_EQ(m_frame.calls.mid(0, 1), QStringList{S("disabled")});
    EXPECT_TRUE(m_frame.enabled);
}

TEST_F(GotoDialog, ADoubleClickMovesToo) {
    Load();
    DoubleClick(Pages(), 1);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(Document().DataPageNum, 2);
}

TEST_F(GotoDialog, IsWorkedWithTheKeyboard) {
    Load();
    QTest::keyClick(&Pages(), Qt::Key_End);
    QTest::keyClick(&Pages(), Qt::Key_Return);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(Document().DataPageNum, 3);
    Load();
    QTest::keyClick(&Pages(), Qt::Key_Up);
    QTest::keyClick(m_dialog.get(), Qt::Key_G, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m_dialog->isVisible(); }));
    EXPECT_EQ(Document().DataPageNum, 2);
}

TEST_F(GotoDialog, CancelAndEscapeStayOnThePage) {
    Load();
    Pages().setCurrentRow(2);
    Click("cmdCancel");
    EXPECT_FALSE(m_dialog->isVisible());
    Load();
    Pages().setCurrentRow(2);
    QTest::keyClick(&Pages(), Qt::Key_Escape);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(Document().DataPageNum, 1);
    EXPECT_EQ(m_frame.calls, QStringList());
}

TEST_F(GotoDialog, WhatWasBeingTypedIsStoredWithItsPage) {
    SimulateTab(Document());
    ThePage().Entry.ReportText(S("Grace"));
    Load();
    DoubleClick(Pages(), 2);
    EXPECT_EQ(Document().memory.DataPage(1).Line(2), u"client=Grace");
}

TEST_F(GotoDialog, AChangedPageRecalculatesTheForm) {
    Document().PageChanged = true;
    Load();
    DoubleClick(Pages(), 1);
    EXPECT_EQ(Text(2), S("7"));
    EXPECT_FALSE(Document().PageChanged);
}

TEST_F(GotoDialog, TheHostIsToldInReportModeAlsoOfTheSamePage) {
    m_application->ReportMode = true;
    Load();
    Click("cmdGoto");
    EXPECT_EQ(m_ui.hostLines, QStringList{S("EVENT: PAGECHANGE")});
    EXPECT_EQ(Document().DataPageNum, 1);
}

TEST_F(GotoDialog, AFailureIsToldAndTheDialogStays) {
    Document().memory.AppendFormulas(1, S("SETME(EQUAL(1,\"abc\"))"), S("client"));
    Document().PageChanged = true;
    Load();
    Pages().setCurrentRow(1);
    Click("cmdGoto");
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_EQ(Document().DataPageNum, 1);
    EXPECT_EQ(m_ui.messages, (std::vector{ShownMessage{S("Error 13: Type mismatch"), m_application->Title,
                                                       MessageIcon::Critical}}));
    EXPECT_EQ(ErrorRows().back().value(3), S("cmdGoto_Click"));
    EXPECT_TRUE(m_frame.enabled);
}

TEST_F(GotoDialog, IsModalAndLeavesTheFirstFieldEntered) {
    bool isOpen = false;
    int shown = 0;
    QTimer::singleShot(0, m_window.get(), [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(isOpen);
        mnuPageGoto_Click(&Document(), isOpen, [&](frmSheetwright&) { ++shown; });
        auto* const pages = dialog->findChild<QListWidget*>(S("lstPages"));
        pages->setCurrentRow(1);
        QTest::keyClick(pages, Qt::Key_Enter);
    });
    mnuPageGoto_Click(&Document(), isOpen,
                      [&](frmSheetwright& document) { ShowGoto(m_window.get(), document); });
    EXPECT_FALSE(isOpen);
    EXPECT_EQ(shown, 0) << "not opened twice";
    EXPECT_EQ(Document().DataPageNum, 2);
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
}

TEST_F(GotoDialog, GermanTextsAreNotCutOff) {
    UseGerman(*m_application);
    Load();
    EXPECT_EQ(m_dialog->windowTitle(), S("Gehe zu Seite"));
    ExpectNothingCutOff(*m_dialog);
}

}  // namespace
}  // namespace sheetwright

// The menus as a person finds them, and when their entries can be chosen.

#include "ui/frame_menus.h"

#include "document/closing.h"
#include "mdi_sheetwright_test.h"

#include <QFile>
#include <QMenuBar>

namespace sheetwright {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FrameMenusTest : public MdiSheetwrightTest {
  protected:
    // "name caption" of each entry, the bare name of a divider.
    [[nodiscard]] QStringList Entries(const char* menu) const {
        QStringList entries;
        for (const QAction* const action : Menu(menu).actions())
            if (!action->objectName().isEmpty())
                entries << (action->isSeparator() ? action->objectName()
                                                  : action->objectName() + u' ' + action->text());
        return entries;
    }

    [[nodiscard]] QStringList Enabled() const {
        QStringList names;
        for (const char* name :
             {"mnuFileSave", "mnuFileSaveAs", "mnuFileClose", "mnuFilePrint", "mnuEditUndo", "MnuEditUpdate",
              "mnuPageAdd", "mnuPageRemove", "mnuPageGoto", "mnuViewZoomIn"})
            if (Action(name)->isEnabled()) names << S(name);
        if (Menu("mnuPage").menuAction()->isEnabled()) names << S("mnuPage");
        return names;
    }
};

TEST_F(FrameMenusTest, StandInTheirOrder) {
    QStringList menus;
    for (const QAction* const action : m_frame->menuBar()->actions())
        menus << action->menu()->objectName() + u' ' + action->text();
    EXPECT_EQ(menus, QStringList({S("mnuFile &File"), S("mnuPage &Edit"), S("mnuOptions &Options"),
                                  S("mnuView &View"), S("mnuWindow &Window"), S("MnuHelp &Help")}));
}

TEST_F(FrameMenusTest, File) {
    EXPECT_EQ(Entries("mnuFile"),
              QStringList({S("mnuFileNew &New..."), S("mnuFileOpen &Open..."), S("mnuFileClose &Close"),
                           S("mnuFileDiv1"), S("mnuFileSave &Save"), S("mnuFileSaveAs Save &As..."),
                           S("mnuFileDiv2"), S("mnuFilePreview Print Pre&view"), S("mnuFilePrint &Print..."),
                           S("mnuFileDiv3"), S("mnuFileRecent0 &1"), S("mnuFileRecent1 &2"),
                           S("mnuFileRecent2 &3"), S("mnuFileRecent3 &4"), S("mnuFileRecent4 &5"),
                           S("mnuFileDiv4"), S("mnuFileExit E&xit")}));
}

TEST_F(FrameMenusTest, Edit) {
    EXPECT_EQ(
        Entries("mnuPage"),
        QStringList({S("mnuEditUndo &Undo"), S("mnuEditRevert Re&vert"), S("MnuEditUpdate Update &Formulas"),
                     S("mnuEditSetUndo &Set Undo Point"), S("mnuEditDiv"), S("mnuPageAdd &Add Page..."),
                     S("mnuPageRemove Re&move Page"), S("mnuPageGoto &Goto Page..."), S("mnuEditDiv2"),
                     S("mnuEditImport &Import From Download Manager"), S("mnuEditDiv3"),
                     S("mnuEditReplace &Replace..."), S("mnuEditFill Column &Fill"),
                     S("mnuEditlists Lists...")}));
}

TEST_F(FrameMenusTest, OptionsWindowAndHelp) {
    EXPECT_EQ(Entries("mnuOptions"), QStringList({S("mnuOptionsSelected &Highlight Selected Field"),
                                                  S("mnuOptionsBlank Highlight &Blank Fields"),
                                                  S("mnuOptionsDiv"), S("mnuOptionsPrefs &Preferences...")}));
    EXPECT_EQ(Entries("mnuWindow"),
              QStringList({S("mnuWindowArrange0 &Cascade"), S("mnuWindowArrange1 Tile &Horizontally"),
                           S("mnuWindowArrange2 &Tile Vertically"), S("mnuWindowArrange3 &Arrange Icons")}));
    EXPECT_EQ(Entries("MnuHelp"),
              QStringList({S("mnuHelpContents &Contents"), S("mnuHelpSearch &Search For Help On..."),
                           S("MnuHelpTutor &Quillon Tutor"), S("mnuHelpDiv"), S("mnuHelpAbout &About")}));
}

TEST_F(FrameMenusTest, DriverMenuOnlyPopsUp) {
    EXPECT_EQ(Entries("mnuDriverPopup"),
              QStringList({S("mnuDriverDownload Download..."), S("mnuDriverImport Import..."),
                           S("mnuDriverEdit Edit...")}));
    EXPECT_FALSE(m_frame->menuBar()->actions().contains(Menu("mnuDriverPopup").menuAction()));
}

TEST_F(FrameMenusTest, EntriesThatAreTheProgramsOwnStayHidden) {
    for (const char* name : {"mnuEditRevert", "mnuEditSetUndo", "mnuFileRecent0"})
        EXPECT_FALSE(Action(name)->isVisible()) << name;
}

TEST_F(FrameMenusTest, NoTwoEntriesHaveAKeyInCommon) {
    QList<QKeySequence> keys;
    for (const MenuRow& menu : MenuTree(*m_application))
        for (const CommandRow& row : menu.entries)
            keys << row.shortcuts;
    for (const QKeySequence& key : keys)
        EXPECT_EQ(keys.count(key), 1) << key.toString().toStdString();
}

TEST_F(FrameMenusTest, KeysAreThoseThatPeopleExpect) {
    const auto key = [this](const char* name) { return Action(name)->shortcut().toString(); };
    EXPECT_EQ(key("mnuFileNew"), S("Ctrl+N"));
    EXPECT_EQ(key("mnuFileOpen"), S("Ctrl+O"));
    EXPECT_EQ(key("mnuFileSave"), S("Ctrl+S"));
    EXPECT_EQ(key("mnuFileSaveAs"), S("Ctrl+Shift+S"));
    EXPECT_EQ(key("mnuFilePrint"), S("Ctrl+P"));
    EXPECT_EQ(key("mnuFileClose"), S("Ctrl+W"));
    EXPECT_EQ(key("mnuFileExit"), S("Ctrl+Q"));
    EXPECT_EQ(key("mnuHelpContents"), S("F1"));
    EXPECT_EQ(key("mnuPageGoto"), S("Ctrl+G"));
    EXPECT_EQ(key("mnuEditReplace"), S("Ctrl+H"));
    EXPECT_EQ(key("MnuEditUpdate"), S("F9"));
}

TEST_F(FrameMenusTest, WithoutAFormNothingOfFormsCanBeChosen) {
    EXPECT_THAT(Enabled(), IsEmpty());
    for (const char* name : {"mnuFileNew", "mnuFileOpen", "mnuFileExit", "mnuOptionsSelected",
                             "mnuOptionsBlank", "mnuWindowArrange0", "mnuHelpContents", "mnuHelpAbout"})
        EXPECT_TRUE(Action(name)->isEnabled()) << name;
}

TEST_F(FrameMenusTest, AFormCanBeSavedUnderItsOwnName) {
    Open(S("form.AFF"));
    EXPECT_EQ(Enabled(),
              QStringList({S("mnuFileSave"), S("mnuFileSaveAs"), S("mnuFileClose"), S("mnuFilePrint"),
                           S("MnuEditUpdate"), S("mnuPageAdd"), S("mnuPageRemove"), S("mnuPageGoto"),
                           S("mnuViewZoomIn"), S("mnuPage")}));
}

TEST_F(FrameMenusTest, ATemplateOnlyUnderANewOne) {
    OpenTemplate(S("form.aft"));
    EXPECT_FALSE(Enabled().contains(S("mnuFileSave")));
    EXPECT_TRUE(Enabled().contains(S("mnuFileSaveAs")));
}

TEST_F(FrameMenusTest, AReadOnlyFormGetsNoPages) {
    QFile::setPermissions(Write(S("form.aff"), TwoPages()), QFile::ReadOwner | QFile::ReadUser);
    m_frame->DialogFileName = Path(S("form.aff"));
    m_frame->OpenFromDialogSlot();
    EXPECT_EQ(Enabled(),
              QStringList({S("mnuFileSaveAs"), S("mnuFileClose"), S("mnuFilePrint"), S("MnuEditUpdate"),
                           S("mnuPageGoto"), S("mnuViewZoomIn"), S("mnuPage")}));
    EXPECT_FALSE(Action("AddPage")->isVisible());
}

TEST_F(FrameMenusTest, CommandsFollowTheFormInFront) {
    FormWindow* const form = Open(S("form.aff"));
    OpenTemplate(S("form.aft"));
    EXPECT_FALSE(Action("mnuFileSave")->isEnabled());
    m_frame->findChild<QMdiArea*>()->setActiveSubWindow(static_cast<QMdiSubWindow*>(form->parentWidget()));
    EXPECT_TRUE(Action("mnuFileSave")->isEnabled());
    Do("mnuFileClose");
    EXPECT_FALSE(Action("mnuFileSave")->isEnabled());
    EXPECT_TRUE(Action("mnuFileClose")->isEnabled());
}

TEST_F(FrameMenusTest, UndoBelongsToTheFormWithTheUndoPoint) {
    FormWindow* const first = Open(S("first.aff"));
    Do("mnuEditSetUndo");
    EXPECT_TRUE(Action("mnuEditUndo")->isEnabled());
    Open(S("second.aff"));
    EXPECT_FALSE(Action("mnuEditUndo")->isEnabled());
    m_frame->findChild<QMdiArea*>()->setActiveSubWindow(static_cast<QMdiSubWindow*>(first->parentWidget()));
    EXPECT_TRUE(Action("mnuEditUndo")->isEnabled());
    Click("cmd_nextpage");
    EXPECT_FALSE(Action("mnuEditUndo")->isEnabled());
}

TEST_F(FrameMenusTest, WhatCantBeDoneYetIsDisabledAlsoWithAForm) {
    Open(S("form.aff"));
    for (const char* name : {"mnuFilePreview", "mnuEditReplace", "mnuEditFill", "mnuOptionsPrefs"})
        EXPECT_FALSE(Action(name)->isEnabled()) << name;
}

TEST_F(FrameMenusTest, WindowMenuListsTheForms) {
    Open(S("one & two.aff"));
    FormWindow* const second = Open(S("second.aff"));
    emit Menu("mnuWindow").aboutToShow();
    const QList<QAction*> entries = Menu("mnuWindow").actions();
    ASSERT_GE(entries.size(), 2);
    EXPECT_EQ(entries[entries.size() - 2]->text(), S("one && two.aff"));
    EXPECT_TRUE(entries.back()->isChecked());
    entries[entries.size() - 2]->trigger();
    EXPECT_NE(m_frame->Active(), second);
}

TEST(IsAllowed, EachRuleLooksAtItsOwnState) {
    const CommandStates none;
    const CommandStates all{.fileSave = true,
                            .fileSaveAs = true,
                            .fileClose = true,
                            .filePreview = true,
                            .filePrint = true,
                            .page = true,
                            .addPageVisible = true};
    for (const CommandRule rule :
         {CommandRule::Form, CommandRule::Save, CommandRule::SaveAs, CommandRule::Print, CommandRule::Edit,
          CommandRule::Pages, CommandRule::Undo}) {
        EXPECT_FALSE(IsAllowed(rule, {.commands = none, .mayChange = true, .canUndo = true}));
        EXPECT_TRUE(IsAllowed(rule, {.commands = all, .mayChange = true, .canUndo = true}));
    }
    EXPECT_TRUE(IsAllowed(CommandRule::Always, {.commands = none}));
    EXPECT_FALSE(IsAllowed(CommandRule::Never, {.commands = all, .mayChange = true, .canUndo = true}));
    EXPECT_FALSE(IsAllowed(CommandRule::Pages, {.commands = all}));
    EXPECT_FALSE(IsAllowed(CommandRule::Undo, {.commands = all, .mayChange = true}));
}

}  // namespace

}  // namespace sheetwright

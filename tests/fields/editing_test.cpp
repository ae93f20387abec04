#include "fields/editing.h"

#include "support/page_of_elements.h"

namespace sheetwright {
namespace {

using EditingAField = PageOfElements;

TEST_F(EditingAField, TheEditorTakesTheFieldsProperties) {
    AddField(S("text"),
             {S("Name=Amount"), S("TabIdx=12"), S("BorderStyle=2"), S("DataSource=a,b"),
              S("FontName=Courier"), S("FontSize=12"), S("FontBold=True"), S("FontItalic=True"),
              S("FontStrikethru=True"), S("FontUnderline=False"), S("ForeColor=255"), S("Format=0.00"),
              S("KeyLevel=3"), S("MultiRecordIndex=4"), S("NewLineOnChange=True"), S("NewLineOnReoccur=True"),
              S("NewPageOnChange=True"), S("NewPageOnReoccur=True"), S("WordWrap=True")});
    m_page.Entries.At(1).alignment = 1;
    Enter(1);
    const usrEntry& entry = m_page.Entry;
    EXPECT_EQ(entry.BorderStyle(), 2);
    EXPECT_EQ(entry.design.DataSource, S("a,b"));
    EXPECT_EQ(entry.Font(), (FontSpec{S("Courier"), 12, true, true, false, true}));
    EXPECT_EQ(entry.ForeColor(), 255U);
    EXPECT_EQ(entry.design.Format, S("0.00"));
    EXPECT_EQ(entry.design.Idx, S("Amount"));
    EXPECT_EQ(entry.design.KeyLevel, 3);
    EXPECT_EQ(entry.design.MultiRecordIndex, 4);
    EXPECT_TRUE(entry.design.NewLineOnChange);
    EXPECT_TRUE(entry.design.NewLineOnReoccur);
    EXPECT_TRUE(entry.design.NewPageOnChange);
    EXPECT_TRUE(entry.design.NewPageOnReoccur);
    EXPECT_EQ(entry.design.TabIdx, 12);
    EXPECT_TRUE(entry.WordWrap());
    EXPECT_EQ(entry.Alignment(), 1);
}

TEST_F(EditingAField, TheEditorLiesOnTheFieldWithItsTextSelected) {
    AddField(S("some text"));
    Enter(1);
    EXPECT_EQ(m_page.entryPlace, (Extent{1440, 720.5, 2000, 300}));
    EXPECT_EQ(m_page.Entry.Width(), 2000);
    EXPECT_EQ(m_page.Entry.FieldType(), field_type::kText);
    EXPECT_EQ(m_page.Entry.Value(), S("some text"));
    EXPECT_EQ(m_page.Entry.SelText(), S("some text"));
    EXPECT_TRUE(m_page.isEntryVisible);
    EXPECT_TRUE(m_window.entryShown);
    EXPECT_EQ(Current(), S("1"));
}

TEST_F(EditingAField, AMissingOrBadKeyNeverStopsEditing) {
    AddField(S("first"), {S("KeyLevel=3"), S("NewLineOnChange=True"), S("Format=0.00"), S("WordWrap=True"),
                          S("FontBold=True"), S("List=a,b")});
    AddField(S("second"), {S("-BorderStyle"), S("-FontBold"), S("-FontName"), S("FontSize=big"),
                           S("-ForeColor"), S("-Name"), S("-WordWrap"), S("-AbsLeft"), S("KeyLevel=99999")});
    Visit(1);
    Enter(2);
    EXPECT_EQ(Current(), S("2"));
    EXPECT_EQ(m_page.Entry.Value(), S("second"));
    EXPECT_EQ(m_page.Entry.BorderStyle(), 1);
    EXPECT_EQ(m_page.Entry.Font().family, S("Arial"));
    EXPECT_FALSE(m_page.Entry.Font().bold) << "nothing stays of the field before";
    EXPECT_EQ(m_page.Entry.ForeColor(), 7U) << "as the element is drawn";
    EXPECT_EQ(m_page.Entry.design.KeyLevel, 0);
    EXPECT_FALSE(m_page.Entry.design.NewLineOnChange);
    EXPECT_EQ(m_page.Entry.design.Format, S(""));
    EXPECT_FALSE(m_page.Entry.WordWrap());
    EXPECT_EQ(m_page.Entry.ListCount(), 0);
    EXPECT_EQ(m_page.entryPlace, (Extent{1440, 720.5, 1985, 285})) << "where the element lies";
}

TEST_F(EditingAField, TypingAloneChangesNothingUntilTheFieldIsLeft) {
    AddField(S("old"));
    Enter(1);
    m_window.calls.clear();
    m_page.Entry.ReportText(S("new"));
    EXPECT_EQ(TextOf(1), S("old"));
    EXPECT_FALSE(m_document.Changed);
    EXPECT_EQ(m_window.calls, QStringList());
    Unselect(m_document);
    EXPECT_EQ(TextOf(1), S("new"));
    EXPECT_TRUE(IsMarkedChanged());
    EXPECT_EQ(m_window.calls, (QStringList{S("ElementChanged 1"), S("HideEntry")}));
    EXPECT_FALSE(m_page.isEntryVisible);
    EXPECT_EQ(Current(), S(""));
}

TEST_F(EditingAField, AnUnchangedTextMarksNothing) {
    AddField(S("same"));
    AddField(S("1.50"), {S("Format=0.00")});
    AddDate(S("31/12/2003"));
    Visit(1);
    Visit(2);
    Visit(3);
    EXPECT_FALSE(m_document.Changed);
    EXPECT_FALSE(m_document.PageChanged);
    EXPECT_EQ(TextOf(3), S("31/12/2003"));
}

TEST_F(EditingAField, UnselectOfNothingDoesNothing) {
    AddField();
    Unselect(m_document);
    Unselect(m_document, kCheck1);
    EXPECT_EQ(m_window.calls, QStringList());
    EXPECT_FALSE(m_document.Changed);
}

TEST_F(EditingAField, TheTextGoesThroughTheFieldsMask) {
    AddField({}, {S("Format=#,##0.00")});
    EXPECT_EQ(Type(1, S("1234.5")), S("1,234.50"));
    EXPECT_TRUE(IsMarkedChanged());
    EXPECT_EQ(Type(1, S("about ten")), S("about ten")) << "what the mask can't show stays as typed";
    EXPECT_EQ(Type(1, S("")), S(""));
}

TEST_F(EditingAField, AnAbsurdMaskNeverStopsTheEdit) {
    for (const QString& mask : {QString(5000, u'0') + S("E+") + QString(5000, u'0'), S("[<>]\\"), S("\""),
                                S(";;;;"), S("0.0.0"), S("%%%"), S("E-"), S("@@@!&")}) {
        const int field = AddField(S("old"), {S("Format=") + mask});
        EXPECT_EQ(FailureOf([&] { Type(field, S("new")); }), std::nullopt) << mask.left(20).toStdString();
        EXPECT_EQ(Current(), S(""));
    }
    EXPECT_EQ(TextOf(1), S("new")) << "no number stays as it was typed";
}

TEST_F(EditingAField, AFieldThatIsEditedLosesNothingWhenItGetsTheFocusAgain) {
    AddField(S("old"));
    Enter(1);
    m_page.Entry.ReportText(S("new"));
    Enter(1);
    EXPECT_EQ(m_page.Entry.Value(), S("new"));
    EXPECT_EQ(m_window.Count(S("HideEntry")), 0);
    Unselect(m_document);
    EXPECT_EQ(TextOf(1), S("new"));
}

TEST_F(EditingAField, AnotherFieldThatGetsTheFocusEndsTheEdit) {
    AddField(S("old"));
    AddField(S("second"));
    AddCheck();
    Enter(1);
    m_page.Entry.ReportText(S("new"));
    Enter(2);
    EXPECT_EQ(TextOf(1), S("new"));
    EXPECT_EQ(Current(), S("2"));
    m_page.Entry.ReportText(S("third"));
    Checks_Click(m_document, 1);
    EXPECT_EQ(TextOf(2), S("third"));
    EXPECT_EQ(Current(), S("C1"));
    Enter(1);
    EXPECT_EQ(Current(), S("1"));
    EXPECT_EQ(m_page.Entry.Value(), S("new"));
}

TEST_F(EditingAField, AReadOnlyFieldPassesTheFocusOn) {
    AddField(S("a"));
    AddField(S("b"), {S("ReadOnly=True")});
    AddField(S("c"), {S("ReadOnly=True")});
    AddField(S("d"));
    Enter(2);
    EXPECT_EQ(Current(), S("4"));
    EXPECT_EQ(m_page.Entry.Value(), S("d"));
    m_page.Entries.At(4).isVisible = false;
    Enter(3);
    EXPECT_EQ(Current(), S("1")) << "past the last from the first";
}

TEST_F(EditingAField, AHiddenFieldPassesTheFocusOn) {
    AddField();
    AddField();
    AddField();
    m_page.Entries.At(2).isVisible = false;
    Enter(2);
    EXPECT_EQ(Current(), S("3"));
}

TEST_F(EditingAField, WithoutAnEditableFieldNothingGetsTheFocus) {
    AddField({}, {S("ReadOnly=True")});
    AddField({}, {S("ReadOnly=True")});
    Enter(1);
    Enter(0);
    Enter(7);
    EXPECT_EQ(Current(), S(""));
    EXPECT_EQ(m_window.calls.filter(S("ShowEntry")), QStringList());
}

TEST_F(EditingAField, LockedDocumentsAreNotEdited) {
    AddField(S("a"));
    AddDate();
    m_document.MyReadonly = true;
    Enter(1);
    Enter(2);
    m_document.MyReadonly = false;
    m_application->ViewerMode = true;
    Enter(1);
    EXPECT_EQ(Current(), S(""));
    EXPECT_EQ(m_window.calls, QStringList());
}

TEST_F(EditingAField, AWindowThatCallsBackFindsNothingBeingEdited) {
    class CallingBack : public RecordingWindow {
      public:
        explicit CallingBack(frmSheetwright& form) : m_form(form) {}
        void ShowEntry() override { Unselect(m_form); }
        void HideEntry() override {
            ++hides;
            Unselect(m_form);
        }
        int hides = 0;

      private:
        frmSheetwright& m_form;
    };
    CallingBack window(m_document);
    m_document.window = &window;
    AddField(S("old"));
    Enter(1);
    EXPECT_EQ(Current(), S("1"));
    m_page.Entry.ReportText(S("new"));
    Unselect(m_document);
    EXPECT_EQ(window.hides, 1);
    EXPECT_EQ(TextOf(1), S("new"));
    m_document.window = &m_window;
}

TEST_F(EditingAField, AFieldThatIsGoneMeanwhileTakesNothing) {
    AddField(S("old"));
    Enter(1);
    m_page.Entries.UnloadAll();
    EXPECT_EQ(FailureOf([&] { Unselect(m_document); }), std::nullopt);
    EXPECT_FALSE(m_page.isEntryVisible);
}

TEST_F(EditingAField, PageKeysAreCancelledInTheEditor) {
    AddField();
    Enter(1);
    EXPECT_EQ(m_page.Entry.ReportKeyDown(key::kPageUp, 0), 0);
    EXPECT_EQ(m_page.Entry.ReportKeyDown(key::kPageDown, 0), 0);
    EXPECT_EQ(m_page.Entry.ReportKeyDown(40, 0), 40) << "others reach it";
}

TEST_F(EditingAField, EscapeDropsTheEdit) {
    AddField(S("old"));
    AddField();
    m_frame.blankTicked = true;
    Enter(1);
    m_page.Entry.ReportText(S("new"));
    EXPECT_EQ(TypeKey(key::kEscape), 0);
    EXPECT_EQ(TextOf(1), S("old"));
    EXPECT_EQ(Current(), S(""));
    EXPECT_FALSE(m_page.isEntryVisible);
    EXPECT_FALSE(m_window.entryShown);
    EXPECT_FALSE(m_document.Changed);
    EXPECT_EQ(m_page.Entries.At(2).backColor, 255U) << "the blanks are marked";
    EXPECT_EQ(m_window.calls.last(), S("FocusPage")) << "so that keys go on arriving";
}

TEST_F(EditingAField, BackspaceInATextIsTheEditorsOwn) {
    AddField(S("old"));
    AddField({}, {S("List=a,b")});
    Enter(1);
    EXPECT_EQ(TypeKey(key::kBackspace), key::kBackspace);
    EXPECT_EQ(Current(), S("1"));
    Enter(2);
    EXPECT_EQ(TypeKey(key::kBackspace), key::kBackspace);
    EXPECT_EQ(Current(), S("2"));
}

class WorkingFields : public PageOfElements {
  protected:
    WorkingFields() {
        AddCheck();
        AddPicture();
    }
    void Choose(const QString& file) {
        m_ui.onFileDialog = [file](FileDialog& dialog) { dialog.fileName = file; };
    }
};

TEST_F(WorkingFields, AClickCyclesThroughTheFourStates) {
    QStringList states;
    for (int click = 0; click < 5; ++click) {
        Checks_Click(m_document, 1);
        states << Check(1).Value();
    }
    EXPECT_EQ(states, (QStringList{S("1"), S("2"), S("3"), S("0"), S("1")}));
    EXPECT_EQ(Current(), S("C1"));
    EXPECT_EQ(m_window.focused, kCheck1);
    EXPECT_TRUE(IsMarkedChanged());
}

TEST_F(WorkingFields, TheSpaceCyclesAndOtherKeysDont) {
    Fields_KeyPress(m_document, kCheck1, key::kSpace);
    EXPECT_EQ(Check(1).Value(), S("1"));
    EXPECT_TRUE(IsMarkedChanged());
    Fields_KeyPress(m_document, kCheck1, 'x');
    Fields_KeyPress(m_document, kCheck1, key::kBackspace);
    EXPECT_EQ(Check(1).Value(), S("1"));
}

TEST_F(WorkingFields, LeavingACheckBoxMarksTheDocumentWhateverWasDone) {
    Tab();
    EXPECT_EQ(Current(), S("C1"));
    EXPECT_FALSE(m_document.Changed);
    Unselect(m_document);
    EXPECT_EQ(Current(), S(""));
    EXPECT_TRUE(IsMarkedChanged());
}

TEST_F(WorkingFields, LeftForNothingThePageGetsTheFocus) {
    FocusField(m_document, kCheck1);
    Unselect(m_document, kPicture1);
    EXPECT_EQ(m_window.Count(S("FocusPage")), 0);
    FocusField(m_document, kCheck1);
    Unselect(m_document);
    EXPECT_EQ(m_window.Count(S("FocusPage")), 1);
    FocusField(m_document, kPicture1);
    Unselect(m_document);
    EXPECT_EQ(m_window.Count(S("FocusPage")), 2);
}

TEST_F(WorkingFields, FocusedAgainNothingIsLeft) {
    FocusField(m_document, kCheck1);
    FocusField(m_document, kCheck1);
    EXPECT_FALSE(m_document.Changed);
    EXPECT_EQ(Current(), S("C1"));
}

TEST_F(WorkingFields, FieldsThatAreNotThereAreIgnored) {
    for (const int number : {0, -1, 2}) {
        Checks_Click(m_document, number);
        Bitmaps_Click(m_document, number);
        Bitmaps_DblClick(m_document, number);
        Fields_KeyPress(m_document, {ElementKind::Check, number}, key::kSpace);
    }
    Fields_KeyPress(m_document, {}, key::kSpace);
    Fields_KeyPress(m_document, {ElementKind::Entry, 1}, key::kSpace);
    EXPECT_EQ(m_window.calls, QStringList());
    EXPECT_FALSE(m_document.Changed);
}

TEST_F(WorkingFields, ThePictureIsChosenByADoubleClickOrTheSpace) {
    m_application->CurrentTempDir = Path(S("temporary/"));
    Write(S("temporary/x"), "");
    Choose(Write(S("one.bmp"), "x"));
    Bitmaps_Click(m_document, 1);
    EXPECT_EQ(Current(), S("B1"));
    EXPECT_TRUE(m_ui.fileDialogs.empty());
    Bitmaps_DblClick(m_document, 1);
    EXPECT_EQ(m_page.Bitmaps.At(1).control->Value(), S("one.bmp"));
    EXPECT_TRUE(IsMarkedChanged());
    EXPECT_EQ(m_window.Count(S("ElementChanged B1")), 1);
    Choose(Write(S("two.bmp"), "y"));
    Fields_KeyPress(m_document, kPicture1, key::kSpace);
    EXPECT_EQ(m_page.Bitmaps.At(1).control->Value(), S("two.bmp"));
    EXPECT_EQ(m_ui.fileDialogs.size(), 2U);
    EXPECT_EQ(m_document.Busy, 0);
}

TEST_F(WorkingFields, ACancelledChoiceChangesNothing) {
    Bitmaps_DblClick(m_document, 1);
    EXPECT_EQ(m_ui.fileDialogs.size(), 1U);
    EXPECT_EQ(m_page.Bitmaps.At(1).control->Value(), S(""));
    EXPECT_FALSE(m_document.Changed);
}

TEST_F(WorkingFields, AReadOnlyPictureIsNotChosen) {
    m_page.Bitmaps.At(1).control->SetEnabled(false);
    Bitmaps_Click(m_document, 1);
    Bitmaps_DblClick(m_document, 1);
    EXPECT_EQ(Current(), S(""));
    EXPECT_TRUE(m_ui.fileDialogs.empty());
}

TEST_F(WorkingFields, LockedDocumentsKeepTheirStates) {
    FocusField(m_document, kCheck1);
    for (const bool isViewer : {false, true}) {
        m_document.MyReadonly = !isViewer;
        m_application->ViewerMode = isViewer;
        Checks_Click(m_document, 1);
        Fields_KeyPress(m_document, kCheck1, key::kSpace);
        Fields_KeyPress(m_document, kPicture1, key::kSpace);
        Bitmaps_DblClick(m_document, 1);
    }
    EXPECT_EQ(Check(1).Value(), S("0"));
    EXPECT_TRUE(m_ui.fileDialogs.empty());
    EXPECT_FALSE(m_document.Changed);
}

}  // namespace
}  // namespace sheetwright

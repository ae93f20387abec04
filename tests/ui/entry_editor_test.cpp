#include "entry_editor_test.h"

namespace sheetwright {
namespace {

using TheEditor = EntryEditorTest;

TEST_F(TheEditor, TakesTheFocusWithItsTextSelected) {
    Field(S("name")).Open({S("name=Ada")});
    EXPECT_TRUE(Editor().IsShown());
    EXPECT_TRUE(Focus().hasFocus());
    EXPECT_EQ(Line().text(), S("Ada"));
    EXPECT_EQ(Line().selectedText(), S("Ada"));
    EXPECT_EQ(ThePage().Entry.SelText(), S("Ada"));
}

TEST_F(TheEditor, WhatIsTypedIsTheFieldsValueAfterTab) {
    Field(S("name")).Field(S("town")).Open({S("name=Ada"), S("town=Turin")});
    Type(S("Grace"));
    EXPECT_EQ(ThePage().Entry.Value(), S("Grace"));
    EXPECT_EQ(Text(1), S("Ada"));
    Tab();
    EXPECT_EQ(Text(1), S("Grace"));
    EXPECT_EQ(ThePage().CurrentEntry, Entry(2));
    EXPECT_EQ(Line().text(), S("Turin"));
    EXPECT_TRUE(Focus().hasFocus());
    EXPECT_TRUE(Document().Changed);
}

TEST_F(TheEditor, MaskFormatsWhatWasTyped) {
    Field(S("sum"), {S("Format=0.00")}).Field(S("other")).Open();
    Type(S("12.5"));
    Tab();
    EXPECT_EQ(Text(1), S("12.50"));
}

TEST_F(TheEditor, ShiftTabGoesBackAndEnterGoesOn) {
    Field(S("a")).Field(S("b")).Field(S("c")).Open();
    Key(Qt::Key_Return);
    EXPECT_EQ(ThePage().CurrentEntry, Entry(2));
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(ThePage().CurrentEntry, Entry(3));
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(ThePage().CurrentEntry, Entry(2));
    Key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
}

TEST_F(TheEditor, TabStaysInTheEditorWhenThereIsNowhereToGo) {
    Field(S("only")).Open();
    Type(S("x"));
    Tab();
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
    EXPECT_TRUE(Focus().hasFocus());
    EXPECT_EQ(Text(1), S("x"));
}

TEST_F(TheEditor, EscapeDropsTheEdit) {
    Field(S("name")).Open({S("name=Ada")});
    Type(S("Grace"));
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Editor().IsShown());
    EXPECT_EQ(Text(1), S("Ada"));
    EXPECT_TRUE(View().hasFocus());
    EXPECT_FALSE(Document().Changed);
}

TEST_F(TheEditor, ShortcutsOfTheFrameDoNotTakeItsKeys) {
    Field(S("name")).Field(S("town")).Open({S("name=Ada")});
    for (const Qt::Key key :
         {Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_Tab, Qt::Key_Delete, Qt::Key_PageDown}) {
        QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(&Focus(), &event);
        EXPECT_TRUE(event.isAccepted()) << key;
    }
    QKeyEvent save(QEvent::ShortcutOverride, Qt::Key_S, Qt::ControlModifier);
    save.ignore();
    QApplication::sendEvent(&Focus(), &save);
    EXPECT_FALSE(save.isAccepted());
}

TEST_F(TheEditor, UndoAndRedoStayInTheField) {
    Field(S("name")).Field(S("town")).Open({S("name=Ada"), S("town=Turin")});
    Type(S("xyz"));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(ThePage().Entry.Value(), S("Ada"));
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(ThePage().Entry.Value(), S("xyz"));
    Key(Qt::Key_Z, Qt::ControlModifier);
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(ThePage().Entry.Value(), S("xyz"));
    Tab();
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Line().text(), S("Turin"));
}

TEST_F(TheEditor, PastedLineBreaksBecomeBlanks) {
    Field(S("name")).Open();
    SetClipboard(S("one\r\ntwo\nthree\r\n"));
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(ThePage().Entry.Value(), S("one two three"));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(ThePage().Entry.Value(), QString());
}

TEST_F(TheEditor, LineBreaksThatAValueHasStay) {
    Field(S("name")).Open();
    Leave();
    ThePage().Entries.At(1).text = S("one\r\ntwo");
    Entries_GotFocus(Document(), 1);
    Key(Qt::Key_End);
    Type(S("!"));
    Leave();
    EXPECT_EQ(Text(1), S("one\r\ntwo!"));
}

TEST_F(TheEditor, LongTextIsNotCutOff) {
    Field(S("name")).Open();
    Leave();
    ThePage().Entries.At(1).text = QString(100000, u'x');
    Entries_GotFocus(Document(), 1);
    EXPECT_EQ(Line().cursorPosition(), 0);
    Key(Qt::Key_End);
    Type(S("!"));
    Leave();
    EXPECT_EQ(Text(1).size(), 100001);
}

TEST_F(TheEditor, VisitAloneChangesNothing) {
    Field(S("name")).Field(S("lines"), {S("WordWrap=True")}).Open({S("name=Ada")});
    Leave();
    ThePage().Entries.At(1).text = S("a\nb");
    ThePage().Entries.At(2).text = S("a\rb");
    for (const int number : {1, 2}) {
        Entries_GotFocus(Document(), number);
        View().SetZoom(2);
        View().SetZoom(1);
        Key(Qt::Key_Right);
        Leave();
    }
    EXPECT_EQ(Text(1), S("a\nb"));
    EXPECT_EQ(Text(2), S("a\rb"));
    EXPECT_FALSE(Document().Changed);
}

TEST_F(TheEditor, CommittedCompositionReachesTheValue) {
    Field(S("name")).Open();
    Compose(S("に"));
    EXPECT_EQ(ThePage().Entry.Value(), QString());
    CommitComposed(S("日本"));
    EXPECT_EQ(ThePage().Entry.Value(), S("日本"));
}

TEST_F(TheEditor, KeysOfAnOpenCompositionAreNotTheForms) {
    Field(S("name")).Field(S("town")).Open();
    Compose(S("に"));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Escape})
        Key(key);
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
    EXPECT_TRUE(Editor().IsShown());
    CommitComposed(S("日"));
    Tab();
    EXPECT_EQ(ThePage().CurrentEntry, Entry(2));
    EXPECT_EQ(Text(1), S("日"));
}

TEST_F(TheEditor, SeveralLinesTakeCtrlEnterAndEnterGoesOn) {
    Field(S("text"), {S("WordWrap=True")}).Field(S("other")).Open();
    Type(S("one"));
    Key(Qt::Key_Return, Qt::ControlModifier);
    Type(S("two"));
    EXPECT_EQ(Shown<QPlainTextEdit>().toPlainText(), S("one\ntwo"));
    EXPECT_EQ(ThePage().Entry.Value(), S("one\r\ntwo"));
    EXPECT_EQ(ThePage().Entry.SelStart(), 8);
    Key(Qt::Key_Return);
    EXPECT_EQ(ThePage().CurrentEntry, Entry(2));
    EXPECT_EQ(Text(1), S("one\r\ntwo"));
}

TEST_F(TheEditor, SingleLineHasNoUseForCtrlEnter) {
    Field(S("text")).Field(S("other")).Open({S("text=one")});
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
    EXPECT_EQ(ThePage().Entry.Value(), S("one"));
}

TEST_F(TheEditor, SeveralLinesKeepPastedLinesAndNoBreakSpaces) {
    Field(S("text"), {S("WordWrap=True")}).Open();
    SetClipboard(S("one\ntwo\u00A0three"));
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(ThePage().Entry.Value(), S("one\r\ntwo\u00A0three"));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(ThePage().Entry.Value(), QString());
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(ThePage().Entry.Value(), S("one\r\ntwo\u00A0three"));
}

TEST_F(TheEditor, WordOfManyLinesIsBrokenAnywhere) {
    Field(S("a"), {S("WordWrap=True")}).Field(S("b"), {S("WordWrap=True")}).Open({S("b=short words")});
    SetClipboard(QString(100'000, u'7'));
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Shown<QPlainTextEdit>().wordWrapMode(), QTextOption::WrapAnywhere);
    Tab();
    EXPECT_EQ(Text(1).size(), 100'000);
    EXPECT_EQ(Shown<QPlainTextEdit>().wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Shown<QPlainTextEdit>().wordWrapMode(), QTextOption::WrapAnywhere);
}

TEST_F(TheEditor, PageDownIsTheFormsAlsoOverSeveralLines) {
    m_form = FormText();
    m_form.Page(S("First")).Field(S("text"), At(100, 100) + QStringList{S("WordWrap=True")});
    m_form.Data(1, {S("text=first")}).Data(1, {S("text=second")});
    ASSERT_NO_FATAL_FAILURE(FormWindowTest::Open(m_form));
    QTest::keyPress(&Focus(), Qt::Key_PageDown);
    EXPECT_EQ(Document().DataPageNum, 1);
    QTest::keyRelease(&Focus(), Qt::Key_PageDown);
    EXPECT_EQ(Document().DataPageNum, 2);
    EXPECT_EQ(ThePage().Entry.Value(), S("second"));
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Document().DataPageNum, 1);
    EXPECT_EQ(m_frame.addPageShown, 0);
}

TEST_F(TheEditor, WidgetsAreKept) {
    Field(S("a")).Field(S("b"), {S("WordWrap=True")}).Field(S("c")).Open();
    const QWidget* const line = &Focus();
    Tab();
    EXPECT_NE(&Focus(), line);
    Tab();
    EXPECT_EQ(&Focus(), line);
    EXPECT_EQ(View().findChildren<QPlainTextEdit*>().size(), 1);
}

TEST_F(TheEditor, HiddenItHandsTheFocusToThePage) {
    Field(S("name")).Open();
    Leave();
    EXPECT_FALSE(Editor().IsShown());
    EXPECT_EQ(Editor().FocusWidget(), nullptr);
    EXPECT_TRUE(View().hasFocus());
}

TEST_F(TheEditor, AnotherWindowInFrontKeepsTheEditOpen) {
    Field(S("name")).Open({S("name=Ada")});
    Type(S("Gr"));
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(Editor().IsShown());
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    Type(S("ace"));
    EXPECT_EQ(ThePage().Entry.Value(), S("Grace"));
}

TEST_F(TheEditor, ContextMenuDoesNotEndTheEdit) {
    Field(S("name")).Open();
    SetClipboard(S("one\ntwo"));
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), Focus().mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&Focus(), &event);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    EXPECT_TRUE(Editor().IsShown());
    for (QAction* const action : menu->actions())
        if (action->text().startsWith(S("&Paste"))) action->trigger();
    EXPECT_EQ(ThePage().Entry.Value(), S("one two"));
    menu->close();
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
}

TEST_F(TheEditor, ProgramThatSetsTheValueIsSeenAndCanBeUndone) {
    Field(S("name")).Open({S("name=Ada")});
    ThePage().Entry.SetValue(S("Grace"));
    EXPECT_EQ(Line().text(), S("Grace"));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(ThePage().Entry.Value(), S("Ada"));
}

TEST_F(TheEditor, FieldShownAgainKeepsWhatWasTyped) {
    Field(S("name")).Open({S("name=Ada")});
    Key(Qt::Key_End);
    Type(S("m"));
    Entries_GotFocus(Document(), 1);
    EXPECT_EQ(Line().text(), S("Adam"));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Line().text(), S("Ada"));
}

TEST_F(TheEditor, TakesNoKeyWhileTheFrameIsDisabled) {
    Field(S("name")).Open({S("name=Ada")});
    m_frame.enabled = false;
    Type(S("x"));
    EXPECT_EQ(ThePage().Entry.Value(), S("Ada"));
    m_frame.enabled = true;
}

TEST_F(TheEditor, LiesOverTheFieldAtEveryZoom) {
    Field(S("name")).Open();
    for (const double zoom : {1.0, 2.0, 0.5}) {
        View().SetZoom(zoom);
        const QRect field = View().OnScreen(ThePage().entryPlace).toRect();
        const QRect shown(Focus().mapTo(&View(), QPoint(0, 0)), Focus().size());
        EXPECT_EQ(shown.topLeft(), field.topLeft());
        EXPECT_EQ(shown.width(), field.width());
        EXPECT_GE(shown.height(), field.height());
        EXPECT_GE(shown.height(), QFontMetrics(Focus().font()).height());
        EXPECT_NEAR(QFontInfo(Focus().font()).pixelSize(), 11 * zoom, 1);
    }
}

TEST_F(TheEditor, HasAVisibleFrame) {
    Field(S("name")).Open();
    const QRect field = View().OnScreen(ThePage().entryPlace).toRect();
    const QImage shown = View().grab().toImage();
    const QColor highlight = View().palette().color(QPalette::Highlight);
    EXPECT_EQ(shown.pixelColor(field.left() - 1, field.center().y()), highlight);
    EXPECT_EQ(shown.pixelColor(field.left() - 2, field.center().y()), highlight);
    EXPECT_EQ(shown.pixelColor(field.center().x(), field.top() - 1), highlight);
}

TEST_F(TheEditor, WheelOverItTurnsThePage) {
    Field(S("name")).Field(S("list"), {S("List=one,two")}).Open({S("list=one")});
    for (const int number : {1, 2}) {
        Entries_GotFocus(Document(), number);
        ThePage().vsbForm.value = 0;
        QWheelEvent event(QPointF(3, 3), Focus().mapToGlobal(QPointF(3, 3)), {}, {0, -120}, {}, {},
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(&Focus(), &event);
        EXPECT_GT(ThePage().vsbForm.value, 0);
    }
    EXPECT_EQ(ThePage().Entry.Value(), S("one"));
}

TEST_F(TheEditor, CanGoBeforeItsForm) {
    frmSheetwright document(*m_application);
    QWidget parent;
    auto editor = std::make_unique<EntryEditor>(document, parent);
    document.page->Entry.SetFieldType(field_type::kText);
    editor->Show(QRectF(10, 10, 100, 20), 1.0 / 15);
    EXPECT_TRUE(editor->IsShown());
    document.page->Entry.SetFieldType(field_type::kNone);
    editor->Show(QRectF(10, 10, 100, 20), 1.0 / 15);
    EXPECT_FALSE(editor->IsShown());
    editor.reset();
    document.page->Entry.SetValue(S("nobody looks"));
    EXPECT_TRUE(parent.children().isEmpty());
}

TEST_F(TheEditor, FieldWithoutAWidthCanBeTypedInto) {
    m_form.Field(S("thin"), At(100, 100, 0, 0));
    Open();
    Type(S("seen"));
    EXPECT_EQ(Line().width(), 12);
    Leave();
    EXPECT_EQ(Text(1), S("seen"));
}

}  // namespace
}  // namespace sheetwright

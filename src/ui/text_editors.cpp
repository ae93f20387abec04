#include "ui/text_editors.h"

#include "fields/usr_entry.h"
#include "ui/single_line_edit.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QWheelEvent>

#include <algorithm>

namespace sheetwright {

namespace {

const QString& LineBreak() {
    static const QString text = QStringLiteral("\r\n");
    return text;
}

// Both keys that people know for it, whatever the desktop's is.
bool IsRedo(const QKeyEvent& key) {
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    return (key.key() == Qt::Key_Y && modifiers == Qt::ControlModifier) ||
           (key.key() == Qt::Key_Z && modifiers == (Qt::ControlModifier | Qt::ShiftModifier));
}

bool IsPaste(const QKeyEvent& key) {
    QKeyEvent copy(key.type(), key.key(), key.modifiers());
    return copy.matches(QKeySequence::Paste);
}

bool IsLineBreak(const QKeyEvent& key) {
    return (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) &&
           key.modifiers().testFlag(Qt::ControlModifier);
}

// Qt looks for the end of a line through the whole word that it stands in: with words beyond this many
// characters that takes seconds, and minutes with those of a hostile form.
constexpr qsizetype kLongestWord = 2000;

bool HoldsLongWord(QStringView text) {
    qsizetype length = 0;
    return std::any_of(text.begin(), text.end(), [&length](QChar character) {
        length = character.isSpace() ? 0 : length + 1;
        return length > kLongestWord;
    });
}

// In the value each break before a position takes one character more.
qsizetype InValue(const QTextDocument& document, int position) {
    return position + document.findBlock(position).blockNumber();
}

}  // namespace

void ConnectLine(usrEntry& entry, SingleLineEdit& edit, const ReportStep& report) {
    const auto tellSelection = [&entry, &edit, report] {
        report([&] {
            const bool isSelected = edit.hasSelectedText();
            entry.ReportSelection(isSelected ? edit.selectionStart() : edit.cursorPosition(),
                                  edit.selectionLength());
        });
    };
    const auto tellText = [&entry, report, tellSelection](const QString& text) {
        report([&] { entry.ReportText(text); });
        tellSelection();
    };
    QObject::connect(&edit, &QLineEdit::textChanged, &edit, tellText);
    QObject::connect(&edit, &QLineEdit::selectionChanged, &edit, tellSelection);
    QObject::connect(&edit, &QLineEdit::cursorPositionChanged, &edit, tellSelection);
}

bool PressInLine(SingleLineEdit& edit, const QKeyEvent& key) {
    if (IsRedo(key)) {
        edit.redo();
        return true;
    }
    if (IsPaste(key)) {
        edit.PasteText();
        return true;
    }
    return IsLineBreak(key);
}

LineEditor::LineEditor(usrEntry& entry, QWidget& frame, ReportStep report)
    : m_edit(new SingleLineEdit(&frame)) {
    ConnectLine(entry, *m_edit, report);
}

QWidget& LineEditor::Widget() {
    return *m_edit;
}

void LineEditor::Load(const usrEntry& entry) {
    m_edit->setText(entry.Value());
    m_edit->setAccessibleName(entry.design.Idx);
}

void LineEditor::TakeText(const QString& text) {
    m_edit->ReplaceText(text);
}

void LineEditor::Dress(const EditorLook& look) {
    m_edit->Dress(look);
}

void LineEditor::SelectAll() {
    m_edit->SelectFromEnd();
}

bool LineEditor::Press(const QKeyEvent& key) {
    return PressInLine(*m_edit, key);
}

LinesEdit::LinesEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);
    document()->setDocumentMargin(0);
}

void LinesEdit::Dress(const EditorLook& look) {
    setFont(look.font);
    setPalette(PaletteOf(look, palette()));
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(look.alignment);
    document()->setDefaultTextOption(option);
    setViewportMargins(look.left, std::max(0, look.baseline - QFontMetrics(look.font).ascent()), 0, 0);
}

// Unlike the plain text, the raw one keeps its no-break spaces.
QString LinesEdit::Value() const {
    QString text = document()->toRawText();
    text.replace(QChar::LineSeparator, QChar::ParagraphSeparator);
    return text.replace(QString(QChar(QChar::ParagraphSeparator)), LineBreak());
}

void LinesEdit::SetValue(const QString& text) {
    clear();
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    BreakLongWordsOf(text);
    setPlainText(text);
}

void LinesEdit::ReplaceValue(const QString& text) {
    BreakLongWordsOf(text);
    selectAll();
    insertPlainText(text);
}

void LinesEdit::insertFromMimeData(const QMimeData* source) {
    BreakLongWordsOf(source->text());
    QPlainTextEdit::insertFromMimeData(source);
}

// Until there is another value: undoing may bring the word back.
void LinesEdit::BreakLongWordsOf(QStringView text) {
    if (HoldsLongWord(text)) setWordWrapMode(QTextOption::WrapAnywhere);
}

// Turns the page where there is nothing more to turn here; with Ctrl it zooms the page.
void LinesEdit::wheelEvent(QWheelEvent* event) {
    const bool scrolls = verticalScrollBar()->maximum() > 0;
    if (scrolls && !event->modifiers().testFlag(Qt::ControlModifier))
        return QPlainTextEdit::wheelEvent(event);
    event->ignore();
}

LinesEditor::LinesEditor(usrEntry& entry, QWidget& frame, ReportStep report) : m_edit(new LinesEdit(&frame)) {
    const auto tellSelection = [&entry, edit = m_edit, report] {
        report([&] {
            const QTextCursor cursor = edit->textCursor();
            const qsizetype start = InValue(*edit->document(), cursor.selectionStart());
            const qsizetype end = InValue(*edit->document(), cursor.selectionEnd());
            entry.ReportSelection(start, end - start);
        });
    };
    // Composing and looks are changes to the widget, too.
    QObject::connect(m_edit, &QPlainTextEdit::textChanged, m_edit, [this, &entry, report, tellSelection] {
        const QString text = m_edit->Value();
        if (text == m_told) return;
        m_told = text;
        report([&] { entry.ReportText(text); });
        tellSelection();
    });
    QObject::connect(m_edit, &QPlainTextEdit::selectionChanged, m_edit, tellSelection);
    QObject::connect(m_edit, &QPlainTextEdit::cursorPositionChanged, m_edit, tellSelection);
}

QWidget& LinesEditor::Widget() {
    return *m_edit;
}

void LinesEditor::Load(const usrEntry& entry) {
    m_edit->SetValue(entry.Value());
    m_told = m_edit->Value();
    m_edit->setAccessibleName(entry.design.Idx);
}

void LinesEditor::TakeText(const QString& text) {
    if (text != m_edit->Value()) m_edit->ReplaceValue(text);
}

void LinesEditor::Dress(const EditorLook& look) {
    m_edit->Dress(look);
}

void LinesEditor::SelectAll() {
    QTextCursor cursor = m_edit->textCursor();
    cursor.movePosition(QTextCursor::End);
    cursor.movePosition(QTextCursor::Start, QTextCursor::KeepAnchor);  // the top stays in view
    m_edit->setTextCursor(cursor);
}

bool LinesEditor::Press(const QKeyEvent& key) {
    if (IsRedo(key)) {
        m_edit->redo();
        return true;
    }
    if (!IsLineBreak(key)) return false;
    m_edit->insertPlainText(QStringLiteral("\n"));
    m_edit->ensureCursorVisible();
    return true;
}

}  // namespace sheetwright

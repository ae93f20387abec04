#include "ui/single_line_edit.h"

#include "ui/editor_look.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFontMetrics>
#include <QKeySequence>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QRegularExpression>

#include <limits>

namespace sheetwright {

namespace {

// What QLineEdit leaves around its text inside the text margins, and more to the right of an aligned one.
constexpr int kOwnMarginX = 2;
constexpr int kOwnMarginY = 1;
constexpr int kBehindText = 2;

QMargins MarginsOf(const EditorLook& look) {
    const int top = look.baseline - QFontMetrics(look.font).ascent() - kOwnMarginY;
    if (look.alignment.testFlag(Qt::AlignRight)) return {0, top, kCursorWidth - kOwnMarginX - kBehindText, 0};
    if (look.alignment.testFlag(Qt::AlignHCenter)) return {look.left, top, -look.left, 0};
    return {look.left - kOwnMarginX, top, -kOwnMarginX, 0};
}

// The actions of the standard menu have no names in all versions of Qt.
bool Pastes(const QAction& action) {
    static const QString shortcut =
        u'\t' + QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText);
    return action.objectName() == u"edit-paste" || action.text().endsWith(shortcut);
}

}  // namespace

QString InOneLine(QString text) {
    static const QRegularExpression lineBreak(
        QStringLiteral("\\r\\n|[\\n\\r\\x{000B}\\x{000C}\\x{0085}\\x{2028}\\x{2029}]"));
    static const QRegularExpression lastBreaks(
        QStringLiteral("[\\n\\r\\x{000B}\\x{000C}\\x{0085}\\x{2028}\\x{2029}]+\\z"));
    return text.remove(lastBreaks).replace(lineBreak, QStringLiteral(" "));
}

SingleLineEdit::SingleLineEdit(QWidget* parent) : QLineEdit(parent) {
    setFrame(false);
    setAutoFillBackground(true);
    setMaxLength(std::numeric_limits<int>::max());
}

void SingleLineEdit::Dress(const EditorLook& look) {
    setFont(look.font);
    setPalette(PaletteOf(look, palette()));
    setAlignment(look.alignment | Qt::AlignTop);
    setTextMargins(MarginsOf(look));
}

void SingleLineEdit::PasteText() {
    const QString text = InOneLine(QApplication::clipboard()->text());
    if (!text.isEmpty()) insert(text);
}

void SingleLineEdit::ReplaceText(const QString& newText) {
    if (newText == text()) return;
    selectAll();
    insert(newText);
}

void SingleLineEdit::SelectFromEnd() {
    if (fontMetrics().horizontalAdvance(text()) <= width()) return selectAll();
    const int length = static_cast<int>(text().size());
    setSelection(length, -length);
}

void SingleLineEdit::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* const menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* const action : menu->actions()) {
        if (!Pastes(*action)) continue;
        action->disconnect(this);
        connect(action, &QAction::triggered, this, [this] { PasteText(); });
    }
    menu->popup(event->globalPos());
}

// The middle button pastes what is selected elsewhere.
void SingleLineEdit::mouseReleaseEvent(QMouseEvent* event) {
    const QClipboard* const clipboard = QApplication::clipboard();
    if (event->button() != Qt::MiddleButton || !clipboard->supportsSelection())
        return QLineEdit::mouseReleaseEvent(event);
    deselect();
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    insert(InOneLine(clipboard->text(QClipboard::Selection)));
}

void SingleLineEdit::dropEvent(QDropEvent* event) {
    QMimeData plain;
    plain.setText(InOneLine(event->mimeData()->text()));
    const bool isOwn = event->source() == this;
    if (isOwn || !event->mimeData()->hasText()) return QLineEdit::dropEvent(event);
    QDropEvent inOneLine(event->position(), event->possibleActions(), &plain, event->buttons(),
                         event->modifiers());
    QLineEdit::dropEvent(&inOneLine);
    event->setDropAction(inOneLine.dropAction());
    event->setAccepted(inOneLine.isAccepted());
}

}  // namespace sheetwright

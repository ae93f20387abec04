#include "ui/list_table_cell_editor.h"

#include "ui/list_table_actions.h"

#include <QKeyEvent>
#include <QPlainTextEdit>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr int kMostLines = 8;
constexpr int kSmallestWidth = 120;  // pixels
constexpr int kFrame = 2;

QPlainTextEdit& EditOf(QWidget* editor) {
    return *static_cast<QPlainTextEdit*>(editor);
}

QString WithPlainBreaks(QString text) {
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

// The plain text of a document would lose blanks that don't break.
QString TextIn(const QPlainTextEdit& edit) {
    return edit.document()->toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

QString BreakOf(const QString& value, const QString& usual) {
    if (value.contains(QStringLiteral("\r\n"))) return QStringLiteral("\r\n");
    if (value.contains(u'\n')) return QStringLiteral("\n");
    return value.contains(u'\r') ? QStringLiteral("\r") : usual;
}

}  // namespace

QWidget* ListTableCellEditor::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                           const QModelIndex& index) const {
    auto* const edit = new QPlainTextEdit(parent);
    edit->setObjectName(QStringLiteral("txtCell"));
    edit->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    edit->setLineWrapMode(QPlainTextEdit::NoWrap);
    edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    edit->setTabChangesFocus(true);
    edit->document()->setDocumentMargin(kFrame);
    connect(edit, &QPlainTextEdit::blockCountChanged, edit, [edit](int lines) {
        const int extra = edit->fontMetrics().lineSpacing() * (std::min(lines, kMostLines) - 1);
        edit->resize(edit->width(), edit->minimumHeight() + extra);
    });
    m_editor = edit;
    return edit;
}

void ListTableCellEditor::destroyEditor(QWidget* editor, const QModelIndex& index) const {
    m_editor.clear();
    QStyledItemDelegate::destroyEditor(editor, index);
}

void ListTableCellEditor::setEditorData(QWidget* editor, const QModelIndex& index) const {
    EditOf(editor).setPlainText(index.data(Qt::EditRole).toString());
    EditOf(editor).selectAll();
}

// A value that nobody changed keeps its own line breaks, also those that the editor takes for others.
void ListTableCellEditor::setModelData(QWidget* editor, QAbstractItemModel* model,
                                       const QModelIndex& index) const {
    const QString before = index.data(Qt::EditRole).toString();
    QString text = TextIn(EditOf(editor));
    if (!EditOf(editor).document()->isModified() || text == WithPlainBreaks(before)) return;
    model->setData(index, text.replace(u'\n', BreakOf(before, LineBreak)));
}

void ListTableCellEditor::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                               const QModelIndex& /*index*/) const {
    const int oneLine = std::max(option.rect.height(), editor->fontMetrics().lineSpacing() + 4 * kFrame);
    const int lines = std::min(EditOf(editor).blockCount(), kMostLines);
    editor->setMinimumHeight(oneLine);
    editor->setGeometry(option.rect.x(), option.rect.y(), std::max(option.rect.width(), kSmallestWidth),
                        oneLine + (lines - 1) * editor->fontMetrics().lineSpacing());
}

void ListTableCellEditor::Commit() {
    if (!m_editor) return;
    QWidget* const editor = m_editor;
    m_editor.clear();
    emit commitData(editor);
    emit closeEditor(editor, NoHint);
}

bool ListTableCellEditor::PressEnter(Qt::KeyboardModifiers modifiers) {
    if (modifiers.testFlag(Qt::AltModifier) || modifiers.testFlag(Qt::ShiftModifier)) {
        EditOf(m_editor).insertPlainText(QStringLiteral("\n"));
        EditOf(m_editor).ensureCursorVisible();
        return true;
    }
    Commit();
    if (Entered) Entered();
    return true;
}

bool ListTableCellEditor::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && IsTextKey(*static_cast<const QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress && watched == m_editor) {
        const auto* const key = static_cast<const QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) return PressEnter(key->modifiers());
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

}  // namespace sheetwright

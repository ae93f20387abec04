#include "ui/help_find_bar.h"

#include "core/application.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTextCursor>
#include <QTextEdit>
#include <QToolButton>

namespace sheetwright {

namespace {

constexpr int kMargin = 4;  // pixels
constexpr int kWidestText = 280;

}  // namespace

HelpFindBar::HelpFindBar(const Application& application, QTextEdit& page, QWidget* parent)
    : QWidget(parent),
      m_page(page),
      m_text(new QLineEdit(this)),
      m_told(new QLabel(this)),
      m_notFound(application.Translate(QStringLiteral("Not found"))) {
    setObjectName(QStringLiteral("picFind"));
    auto* const caption = new QLabel(application.Translate(QStringLiteral("&Find:")), this);
    caption->setBuddy(m_text);
    m_text->setObjectName(QStringLiteral("txtFind"));
    m_text->setMaximumWidth(kWidestText);
    m_text->setClearButtonEnabled(true);
    m_text->installEventFilter(this);
    m_told->setObjectName(QStringLiteral("lblFind"));
    QToolButton* const previous =
        MakeButton(QStringLiteral("cmdFindPrevious"), application.Translate(QStringLiteral("Previous")));
    QToolButton* const next =
        MakeButton(QStringLiteral("cmdFindNext"), application.Translate(QStringLiteral("Next")));
    QToolButton* const close =
        MakeButton(QStringLiteral("cmdFindClose"), application.Translate(QStringLiteral("Close")));
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    for (QWidget* const widget : std::initializer_list<QWidget*>{caption, m_text, previous, next})
        row->addWidget(widget);
    row->addWidget(m_told, 1);
    row->addWidget(close);
    connect(m_text, &QLineEdit::textEdited, this, &HelpFindBar::FindWhileTyping);
    connect(previous, &QToolButton::clicked, this, &HelpFindBar::FindPrevious);
    connect(next, &QToolButton::clicked, this, &HelpFindBar::FindNext);
    connect(close, &QToolButton::clicked, this, &QWidget::hide);
    hide();
}

QToolButton* HelpFindBar::MakeButton(const QString& name, const QString& caption) {
    auto* const button = new QToolButton(this);
    button->setObjectName(name);
    button->setText(caption);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void HelpFindBar::Start() {
    const QString selected = m_page.textCursor().selectedText();
    const bool isOneLine =
        !selected.contains(QChar::ParagraphSeparator) && !selected.contains(QChar::LineSeparator);
    if (!selected.isEmpty() && isOneLine) m_text->setText(selected);
    if (selected.isEmpty()) m_page.setTextCursor(m_page.cursorForPosition(QPoint()));
    m_told->clear();
    show();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

// Enter goes on, with Shift back.
bool HelpFindBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const auto* const key = static_cast<const QKeyEvent*>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return false;
    Find(!key->modifiers().testFlag(Qt::ShiftModifier));
    return true;
}

// What is found already stays found while it grows.
void HelpFindBar::FindWhileTyping() {
    QTextCursor cursor = m_page.textCursor();
    cursor.setPosition(cursor.selectionStart());
    m_page.setTextCursor(cursor);
    FindNext();
}

// Behind the last one comes the first.
void HelpFindBar::Find(bool isForward) {
    m_told->clear();
    if (m_text->text().isEmpty()) return;
    const QTextDocument::FindFlags flags =
        isForward ? QTextDocument::FindFlags() : QTextDocument::FindBackward;
    if (m_page.find(m_text->text(), flags)) return;
    const QTextCursor before = m_page.textCursor();
    const int place = m_page.verticalScrollBar()->value();
    m_page.moveCursor(isForward ? QTextCursor::Start : QTextCursor::End);
    if (m_page.find(m_text->text(), flags)) return;
    m_page.setTextCursor(before);
    m_page.verticalScrollBar()->setValue(place);
    m_told->setText(m_notFound);
}

}  // namespace sheetwright

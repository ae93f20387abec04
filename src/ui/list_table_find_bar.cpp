#include "ui/list_table_find_bar.h"

#include "core/application.h"
#include "ui/list_table_actions.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace sheetwright {

namespace {

constexpr int kMargin = 6;  // pixels
constexpr int kSpacing = 4;
constexpr int kWidestText = 320;
enum GridColumn { kCaption, kText, kFirstButton, kSecondButton, kOption, kTold, kClose };

}  // namespace

ListTableFindBar::ListTableFindBar(const Application& application, QWidget* parent)
    : QWidget(parent), m_grid(new QGridLayout(this)) {
    setObjectName(QStringLiteral("picFind"));
    m_grid->setContentsMargins(kMargin, kSpacing, kMargin, kSpacing);
    m_grid->setSpacing(kSpacing);
    m_grid->setColumnStretch(kTold, 1);
    BuildFind(application);
    BuildReplace(application);
    for (QLineEdit* const line : {m_text, m_replacement})
        line->installEventFilter(this);
    hide();
}

QLineEdit* ListTableFindBar::AddLine(int row, const char* name, const QString& caption) {
    auto* const label = new QLabel(caption, this);
    auto* const line = new QLineEdit(this);
    line->setObjectName(QString::fromLatin1(name));
    line->setMaximumWidth(kWidestText);
    line->setClearButtonEnabled(true);
    label->setBuddy(line);
    m_grid->addWidget(label, row, kCaption);
    m_grid->addWidget(line, row, kText);
    if (row > 0) m_secondRow << label << line;
    return line;
}

QToolButton* ListTableFindBar::AddButton(int row, int column, const char* name, const QString& caption,
                                         const std::function<void()>& command) {
    auto* const button = new QToolButton(this);
    button->setObjectName(QString::fromLatin1(name));
    button->setText(caption);
    button->setFocusPolicy(Qt::TabFocus);
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_grid->addWidget(button, row, column);
    connect(button, &QToolButton::clicked, this, command);
    if (row > 0) m_secondRow << button;
    return button;
}

void ListTableFindBar::BuildFind(const Application& application) {
    m_text = AddLine(0, "txtFind", application.Translate(QStringLiteral("&Find:")));
    AddButton(0, kFirstButton, "cmdFindPrevious", application.Translate(QStringLiteral("Previous")),
              [this] { Find(false); });
    AddButton(0, kSecondButton, "cmdFindNext", application.Translate(QStringLiteral("Next")),
              [this] { Find(true); });
    m_case = new QCheckBox(application.Translate(QStringLiteral("Match &case")), this);
    m_case->setObjectName(QStringLiteral("chkCase"));
    m_told = new QLabel(this);
    m_told->setObjectName(QStringLiteral("lblFind"));
    m_grid->addWidget(m_case, 0, kOption);
    m_grid->addWidget(m_told, 0, kTold);
    AddButton(0, kClose, "cmdFindClose", application.Translate(QStringLiteral("Close")), [this] {
        Leave();
    })->setAutoRaise(true);
    connect(m_text, &QLineEdit::textChanged, this, [this] { Changed(); });
    connect(m_case, &QCheckBox::toggled, this, [this] { Changed(); });
}

void ListTableFindBar::BuildReplace(const Application& application) {
    m_replacement = AddLine(1, "txtReplace", application.Translate(QStringLiteral("&Replace by:")));
    AddButton(1, kFirstButton, "cmdReplace", application.Translate(QStringLiteral("Replace")),
              [this] { Replace(); });
    AddButton(1, kSecondButton, "cmdReplaceAll", application.Translate(QStringLiteral("Replace All")),
              [this] { ReplaceAll(); });
}

void ListTableFindBar::Start(const QString& text, bool isReplacing) {
    for (QWidget* const widget : m_secondRow)
        widget->setVisible(isReplacing);
    show();
    if (!text.isEmpty()) m_text->setText(text);
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

void ListTableFindBar::Tell(const QString& text) {
    m_told->setText(text);
}

ListQuery ListTableFindBar::Query() const {
    return {m_text->text(), m_case->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive};
}

QString ListTableFindBar::Replacement() const {
    return m_replacement->text();
}

void ListTableFindBar::Leave() {
    hide();
    Closed();
}

// Enter goes on, with Shift back; in the second row it replaces.
bool ListTableFindBar::eventFilter(QObject* watched, QEvent* event) {
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (!isOverride && event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const auto* const key = static_cast<const QKeyEvent*>(event);
    if (isOverride) {
        if (IsTextKey(*key)) event->accept();
        return false;
    }
    const bool isEnter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (key->key() == Qt::Key_Escape) {
        Leave();
    } else if (isEnter && watched == m_replacement) {
        Replace();
    } else if (isEnter) {
        Find(!key->modifiers().testFlag(Qt::ShiftModifier));
    } else {
        return false;
    }
    return true;
}

}  // namespace sheetwright

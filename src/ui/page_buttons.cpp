#include "ui/page_buttons.h"

#include "core/application.h"
#include "ui/line_icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace sheetwright {

namespace {

constexpr std::size_t kPrevious = 1;
constexpr std::size_t kNext = 2;
constexpr int kBoxMargin = 6;

// In the order of the buttons.
constexpr std::array<QStringView, 4> kIcons{u"first_page", u"previous_page", u"next_page", u"last_page"};

}  // namespace

PageButtons::PageButtons(const Application& application, QWidget* parent)
    : QWidget(parent),
      m_buttons{
          Button(QStringLiteral("cmd_firstpage"), application.Translate(QStringLiteral("First Page"))),
          Button(QStringLiteral("cmd_prevpage"), application.Translate(QStringLiteral("Previous Page"))),
          Button(QStringLiteral("cmd_nextpage"), application.Translate(QStringLiteral("Next Page"))),
          Button(QStringLiteral("cmd_lastpage"), application.Translate(QStringLiteral("Last Page")))},
      m_lblpages(new QLabel(QStringLiteral("000/000"), this)) {
    setObjectName(QStringLiteral("pic_pages"));
    m_lblpages->setObjectName(QStringLiteral("lblpages"));
    m_lblpages->setAlignment(Qt::AlignCenter);
    m_lblpages->setMargin(kBoxMargin);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (QToolButton* const button : m_buttons)
        row->addWidget(button);
    row->insertWidget(kNext, m_lblpages);
    m_lblpages->setMinimumWidth(m_lblpages->sizeHint().width());
    m_lblpages->clear();
    const std::array clicks{&First, &Previous, &Next, &Last};
    for (std::size_t at = 0; at < m_buttons.size(); ++at)
        connect(m_buttons[at], &QToolButton::clicked, this, [click = clicks[at]] {
            if (*click) (*click)();
        });
}

void PageButtons::SetBox(const QString& text) {
    m_lblpages->setText(text);
}

void PageButtons::SetPages(int page, int pages) {
    if (page == m_page && pages == m_pages) return;
    m_page = page;
    m_pages = pages;
    for (std::size_t at = 0; at < m_buttons.size(); ++at)
        m_buttons[at]->setEnabled(at <= kPrevious ? page > 1 : page < pages);
}

void PageButtons::SetIconColour(const QColor& colour) {
    for (std::size_t at = 0; at < m_buttons.size(); ++at)
        m_buttons[at]->setIcon(LineIcon(kIcons.at(at).toString(), colour));
}

// Takes no focus: the field being edited keeps it until the page turns.
QToolButton* PageButtons::Button(const QString& name, const QString& words) {
    auto* const button = new QToolButton(this);
    button->setObjectName(name);
    button->setToolTip(words);
    button->setAccessibleName(words);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

}  // namespace sheetwright

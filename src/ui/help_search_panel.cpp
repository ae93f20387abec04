#include "ui/help_search_panel.h"

#include "core/application.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTextLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace sheetwright {

namespace {

constexpr int kMargin = 6;  // pixels
constexpr int kSpacing = 2;
constexpr int kExcerptLines = 3;
constexpr int kExcerptRole = Qt::UserRole;
constexpr double kFaded = 0.75;
constexpr std::array kListKeys{Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_PageUp};

// The title in bold, the excerpt below it.
class ResultDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        const QString title = std::exchange(row.text, QString());
        const QStyle& style = *(row.widget == nullptr ? QApplication::style() : row.widget->style());
        style.drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
        const bool isSelected = row.state.testFlag(QStyle::State_Selected);
        QColor colour = row.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
        const QRect inside = row.rect.adjusted(kMargin, kMargin, -kMargin, -kMargin);
        painter->save();
        painter->setClipRect(inside);
        painter->setPen(colour);
        painter->setFont(Bold(row.font));
        const QFontMetrics bold(painter->font());
        painter->drawText(inside, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                          bold.elidedText(title, Qt::ElideRight, inside.width()));
        colour.setAlphaF(kFaded);
        painter->setPen(colour);
        painter->setFont(row.font);
        DrawLines(*painter, inside.adjusted(0, bold.height() + kSpacing, 0, 0),
                  index.data(kExcerptRole).toString());
        painter->restore();
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        const int lines = QFontMetrics(Bold(row.font)).height() + kSpacing +
                          kExcerptLines * QFontMetrics(row.font).lineSpacing();
        return {0, lines + 2 * kMargin};
    }

  private:
    static QFont Bold(QFont font) {
        font.setBold(true);
        return font;
    }

    // The last line that there is room for ends in "…" when more text follows.
    static void DrawLines(QPainter& painter, const QRect& room, const QString& text) {
        const QFontMetrics metrics(painter.font());
        QTextLayout layout(text, painter.font());
        layout.beginLayout();
        for (int at = 0; at < kExcerptLines; ++at) {
            QTextLine line = layout.createLine();
            if (!line.isValid()) break;
            line.setLineWidth(room.width());
            const int end = line.textStart() + line.textLength();
            const bool isLast = at + 1 == kExcerptLines;
            const QString words = text.mid(line.textStart(), isLast ? -1 : end - line.textStart());
            painter.drawText(room.left(), room.top() + at * metrics.lineSpacing() + metrics.ascent(),
                             isLast ? metrics.elidedText(words, Qt::ElideRight, room.width()) : words);
        }
        layout.endLayout();
    }
};

}  // namespace

HelpSearchPanel::HelpSearchPanel(const Application& application, const QString& folder, QWidget* parent)
    : QWidget(parent),
      m_application(application),
      m_folder(folder),
      m_words(new QLineEdit(this)),
      m_told(new QLabel(this)),
      m_list(new QListWidget(this)) {
    m_words->setObjectName(QStringLiteral("txtSearch"));
    m_words->setPlaceholderText(application.Translate(QStringLiteral("Words to search for")));
    m_words->setAccessibleName(m_words->placeholderText());
    m_words->setClearButtonEnabled(true);
    m_words->installEventFilter(this);
    m_told->setObjectName(QStringLiteral("lblSearch"));
    m_told->setWordWrap(true);
    m_told->hide();
    m_list->setObjectName(QStringLiteral("lstResults"));
    m_list->setAccessibleName(application.Translate(QStringLiteral("Results")));
    m_list->setItemDelegate(new ResultDelegate(m_list));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->addWidget(m_words);
    column->addWidget(m_told);
    column->addWidget(m_list, 1);
    connect(m_words, &QLineEdit::textChanged, this, &HelpSearchPanel::Search);
    connect(m_words, &QLineEdit::returnPressed, this, [this] { OpenRow(m_list->currentRow()); });
    connect(m_list, &QListWidget::itemClicked, this, [this] { OpenRow(m_list->currentRow()); });
    connect(m_list, &QListWidget::itemActivated, this, [this] { OpenRow(m_list->currentRow()); });
}

void HelpSearchPanel::Start(const QString& words) {
    if (!words.isEmpty()) m_words->setText(words);
    m_words->setFocus(Qt::OtherFocusReason);
    m_words->selectAll();
}

// The results are walked through without leaving the box.
bool HelpSearchPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<const QKeyEvent*>(event)->key();
    if (std::ranges::find(kListKeys, key) == kListKeys.end()) return false;
    QCoreApplication::sendEvent(m_list, event);
    return true;
}

void HelpSearchPanel::Search() {
    if (!m_search) m_search.emplace(m_folder);
    m_list->clear();
    m_results = m_search->Find(m_words->text());
    for (const HelpResult& result : m_results)
        Show(result);
    m_list->setCurrentRow(0);
    const bool isNothing = m_results.empty() && !PlainWords(m_words->text()).isEmpty();
    m_told->setText(isNothing ? m_application.Translate(QStringLiteral("No page has all of these words."))
                              : QString());
    m_told->setVisible(isNothing);
}

void HelpSearchPanel::Show(const HelpResult& result) {
    const QString title =
        result.heading.isEmpty() ? result.title : result.title + QStringLiteral(": ") + result.heading;
    auto* const row = new QListWidgetItem(title, m_list);
    row->setToolTip(title);
    row->setData(kExcerptRole, result.excerpt);
    row->setData(Qt::AccessibleDescriptionRole, result.excerpt);
}

void HelpSearchPanel::OpenRow(int row) {
    if (row >= 0 && row < m_list->count() && Open)
        Open(m_results[static_cast<std::size_t>(row)], m_words->text());
}

}  // namespace sheetwright

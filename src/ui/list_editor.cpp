#include "ui/list_editor.h"

#include "fields/usr_entry.h"
#include "ui/single_line_edit.h"
#include "ui/text_editors.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QStringListModel>
#include <QStyledItemDelegate>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace sheetwright {

namespace {

constexpr int kShownItems = 12;
constexpr qsizetype kMeasuredItems = 500;  // the width of longer lists follows their beginning
constexpr int kItemPadding = 16;           // pixels
constexpr int kItemSpacing = 6;            // pixels

bool OpensList(const QKeyEvent& key) {
    const bool isAlt = key.modifiers().testFlag(Qt::AltModifier);
    if (key.key() == Qt::Key_F4) return key.modifiers() == Qt::NoModifier;
    return isAlt && (key.key() == Qt::Key_Down || key.key() == Qt::Key_Up);
}

int StepOf(const QKeyEvent& key) {
    if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return 0;
    if (key.key() == Qt::Key_Down) return 1;
    return key.key() == Qt::Key_Up ? -1 : 0;
}

class RoomyItems : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kItemSpacing);
    }
};

int WidestOf(const QStringList& items, const QFontMetrics& metrics) {
    int widest = 0;
    for (const QString& item : items.first(std::min(items.size(), kMeasuredItems)))
        widest = std::max(widest, metrics.horizontalAdvance(item));
    return widest;
}

}  // namespace

ListBox::ListBox(QWidget* parent)
    : QComboBox(parent), m_line(new SingleLineEdit(this)), m_items(new QStringListModel(this)) {
    setEditable(true);
    setLineEdit(m_line);
    setCompleter(nullptr);
    setInsertPolicy(NoInsert);
    setFrame(false);
    setMaxVisibleItems(kShownItems);
    setModel(m_items);
    setItemDelegate(new RoomyItems(this));
    // A text that is typed chooses no item, not even when the field is left.
    disconnect(m_line, &QLineEdit::editingFinished, this, nullptr);
    disconnect(m_line, &QLineEdit::returnPressed, this, nullptr);
    m_line->installEventFilter(this);
}

void ListBox::Dress(const EditorLook& look) {
    m_look = look;
    m_line->Dress(look);
    PlaceLine();
}

void ListBox::SetItems(const QStringList& items) {
    if (m_items->stringList() != items) m_items->setStringList(items);
}

void ListBox::showPopup() {
    const int room = kItemPadding + view()->verticalScrollBar()->sizeHint().width();
    const int widest = WidestOf(m_items->stringList(), view()->fontMetrics()) + room;
    view()->setMinimumWidth(std::min(widest, screen()->availableGeometry().width()));
    QComboBox::showPopup();
}

void ListBox::PlaceLine() {
    m_line->setGeometry(0, 0, width() - m_look.arrow, height());
}

void ListBox::resizeEvent(QResizeEvent* event) {
    QComboBox::resizeEvent(event);
    PlaceLine();
}

// The box puts its line elsewhere whenever an item is chosen.
bool ListBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_line && (event->type() == QEvent::Move || event->type() == QEvent::Resize)) PlaceLine();
    return QComboBox::eventFilter(watched, event);
}

// The box hands its own colours and style to its line.
void ListBox::changeEvent(QEvent* event) {
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) m_line->Dress(m_look);
}

void ListBox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

ListEditor::ListEditor(usrEntry& entry, QWidget& frame, ReportStep report)
    : m_entry(entry), m_report(std::move(report)), m_box(new ListBox(&frame)) {
    ConnectLine(entry, m_box->Line(), m_report);
    QObject::connect(m_box, &QComboBox::activated, m_box,
                     [this](int index) { m_report([&] { m_entry.ReportPick(index); }); });
}

QWidget& ListEditor::Widget() {
    return *m_box;
}

void ListEditor::Load(const usrEntry& entry) {
    QStringList items;
    items.reserve(entry.ListCount());
    for (int index = 0; index < entry.ListCount(); ++index)
        items << entry.List(index);
    m_box->SetItems(items);
    m_box->setCurrentIndex(entry.ListIndex());
    m_box->Line().setText(entry.Value());
    m_box->setAccessibleName(entry.design.Idx);
}

void ListEditor::TakeText(const QString& text) {
    m_box->Line().ReplaceText(text);
}

void ListEditor::Dress(const EditorLook& look) {
    m_box->Dress(look);
}

void ListEditor::SelectAll() {
    m_box->Line().SelectFromEnd();
}

void ListEditor::Pick(int index) {
    m_box->setCurrentIndex(index);
    SelectAll();
    m_report([&] { m_entry.ReportPick(index); });
}

int ListEditor::FirstLike(const QString& text) const {
    for (int index = 0; index < m_entry.ListCount(); ++index)
        if (m_entry.List(index).startsWith(text, Qt::CaseInsensitive)) return index;
    return 0;
}

// A typed text stands at no item: from there both ways lead to the first one that begins like it.
int ListEditor::Beside(int step) const {
    const int index = m_entry.ListIndex();
    if (index < 0) return FirstLike(m_entry.Value());
    return std::clamp(index + step, 0, m_entry.ListCount() - 1);
}

bool ListEditor::Press(const QKeyEvent& key) {
    if (OpensList(key)) {
        m_box->showPopup();
        return true;
    }
    const int step = StepOf(key);
    if (step == 0) return PressInLine(m_box->Line(), key);
    if (m_entry.ListCount() == 0) return true;
    const int index = Beside(step);
    if (index != m_entry.ListIndex()) Pick(index);
    return true;
}

void ListEditor::ClosePopups() {
    m_box->hidePopup();
}

QWidget* ListEditor::PopupKeys() {
    return m_box->view();
}

void ListEditor::ChooseInPopup() {
    const int index = m_box->view()->currentIndex().row();
    m_box->hidePopup();
    if (index >= 0 && index < m_entry.ListCount()) Pick(index);
}

double ListEditor::NarrowestTwips() const {
    return usrEntry::kNarrowestList;
}

}  // namespace sheetwright

#include "ui/list_table_view.h"

#include "ui/list_table_cell_editor.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr int kColumnWidth = 120;  // pixels
constexpr int kSmallestColumn = 70;
constexpr int kWidestColumn = 340;
constexpr int kColumnRoom = 12;
constexpr int kColumnsFitted = 200;
constexpr int kRowsLookedAt = 60;
constexpr int kRowRoom = 8;
constexpr int kHeaderRoom = 10;

void KeepRowsAlike(QTableView& view) {
    QHeaderView& rows = *view.verticalHeader();
    rows.setSectionResizeMode(QHeaderView::Fixed);
    rows.setDefaultSectionSize(view.fontMetrics().lineSpacing() + kRowRoom);
    rows.setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    rows.setHighlightSections(true);
}

}  // namespace

ListTableView::ListTableView(QWidget* parent) : QTableView(parent), m_editor(new ListTableCellEditor(this)) {
    setObjectName(QStringLiteral("tblList"));
    setItemDelegate(m_editor);
    setWordWrap(false);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollMode(ScrollPerPixel);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    horizontalHeader()->setDefaultSectionSize(kColumnWidth);
    horizontalHeader()->setMinimumHeight(fontMetrics().lineSpacing() + kHeaderRoom);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setContextMenuPolicy(Qt::ActionsContextMenu);
    verticalHeader()->setContextMenuPolicy(Qt::ActionsContextMenu);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    KeepRowsAlike(*this);
    m_editor->Entered = [this] {
        setFocus(Qt::OtherFocusReason);
        Enter();
    };
}

std::vector<int> ListTableView::SelectedRows() const {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    if (rows.empty() && currentIndex().isValid()) rows.push_back(currentIndex().row());
    return rows;
}

CellBlock ListTableView::SelectedBlock() const {
    const QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty())
        return currentIndex().isValid() ? CellBlock{currentIndex().row(), currentIndex().column(), 1, 1}
                                        : CellBlock();
    QRect around;
    for (const QItemSelectionRange& range : selection)
        around |= QRect(range.left(), range.top(), range.width(), range.height());
    return {around.y(), around.x(), around.height(), around.width()};
}

// Whatever keys are down.
void ListTableView::GoTo(const QModelIndex& cell) {
    if (!cell.isValid()) return;
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
    scrollTo(cell);
}

void ListTableView::SelectBlock(const CellBlock& block) {
    const QModelIndex first = model()->index(block.row, block.column);
    const QModelIndex last = model()->index(block.row + block.rows - 1, block.column + block.columns - 1);
    if (!first.isValid() || !last.isValid()) return;
    GoTo(first);
    selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
}

void ListTableView::FitColumns() {
    horizontalHeader()->setResizeContentsPrecision(kRowsLookedAt);
    const int count = std::min(model()->columnCount(), kColumnsFitted);
    for (int column = 0; column < count; ++column) {
        const int wanted = std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column));
        setColumnWidth(column, std::clamp(wanted + kColumnRoom, kSmallestColumn, kWidestColumn));
    }
}

void ListTableView::Enter() {
    const QModelIndex current = currentIndex();
    if (!current.isValid()) return;
    if (current.row() + 1 < model()->rowCount()) {
        GoTo(current.siblingAtRow(current.row() + 1));
    } else if (RowWanted) {
        RowWanted();
    }
}

void ListTableView::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isDownAtEnd = event->key() == Qt::Key_Down && currentIndex().isValid() &&
                             currentIndex().row() + 1 == model()->rowCount();
    if (isPlain && state() != EditingState && (isEnter || isDownAtEnd)) return Enter();
    QTableView::keyPressEvent(event);
}

}  // namespace sheetwright

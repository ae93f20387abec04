#include "ui/list_table_model.h"

#include "core/application.h"
#include "fields/list_types.h"

#include <QTextDocument>

#include <algorithm>
#include <numeric>

namespace sheetwright {

namespace {

constexpr qsizetype kMostShown = 1000;  // characters, more than a screen is wide

// A cell shows one line.
QString InOneLine(const QString& text) {
    static const QString kMark = QStringLiteral("\u21B5");
    QString line = text.left(kMostShown).replace(QStringLiteral("\r\n"), kMark);
    for (const QChar lineBreak :
         {QChar(u'\n'), QChar(u'\r'), QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator)})
        line.replace(lineBreak, kMark);
    return line;
}

// With more gaps than that the view is told of all rows at once.
constexpr std::size_t kMostGaps = 64;

struct Run {
    int first;
    int count;
};

// Ascending places as runs of neighbours.
std::vector<Run> RunsOf(const std::vector<int>& places) {
    std::vector<Run> runs;
    for (const int place : places) {
        if (!runs.empty() && runs.back().first + runs.back().count == place) {
            ++runs.back().count;
        } else {
            runs.push_back({place, 1});
        }
    }
    return runs;
}

}  // namespace

ListTableModel::ListTableModel(const Application& application, QObject* parent)
    : QAbstractTableModel(parent), m_application(application) {}

void ListTableModel::SetTable(ListTable& table) {
    beginResetModel();
    m_table = &table;
    Touch(0, 0);
    endResetModel();
}

int ListTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_table->RowCount();
}

int ListTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_table->ColumnCount();
}

bool ListTableModel::Fits(const QModelIndex& cell) const {
    const QString& type = m_table->Column(cell.column()).type;
    return type == QStringLiteral("TEXT") || FitsType(m_table->Text(cell.row(), cell.column()), type);
}

QString ListTableModel::Advice(const QString& type) const {
    if (type == QStringLiteral("NUMBER"))
        return m_application.Translate(QStringLiteral("This is no number. A number has a decimal point."));
    if (type == QStringLiteral("DATE"))
        return m_application.Translate(
            QStringLiteral("This is no date. A date has eight digits: year, month and day."));
    return m_application.Translate(QStringLiteral("This is neither yes nor no. Yes is -1, no is 0."));
}

QVariant ListTableModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const ListColumn& column = m_table->Column(index.column());
    switch (role) {
        case Qt::DisplayRole:
            return InOneLine(m_table->Text(index.row(), index.column()));
        case Qt::EditRole:
            return m_table->Text(index.row(), index.column());
        case Qt::TextAlignmentRole:
            return QVariant::fromValue(
                Qt::Alignment((column.type == QStringLiteral("NUMBER") ? Qt::AlignRight : Qt::AlignLeft) |
                              Qt::AlignVCenter));
        case Qt::BackgroundRole:
            return Fits(index) ? QVariant() : QVariant(m_misfit);
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole:
            return Fits(index) ? QVariant() : QVariant(Advice(column.type));
        default:
            return {};
    }
}

QVariant ListTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    if (orientation == Qt::Vertical) return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    const QString name = InOneLine(m_table->Column(section).name);
    return role == Qt::DisplayRole ? name : Qt::convertFromPlainText(name);
}

Qt::ItemFlags ListTableModel::flags(const QModelIndex& index) const {
    return QAbstractTableModel::flags(index) | (index.isValid() ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool ListTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::EditRole || !Typed) return false;
    Typed(index, value.toString());
    return true;
}

void ListTableModel::SwapRows(PlacedRows& rows, int column) {
    if (rows.empty()) return;
    for (auto& [place, row] : rows)
        m_table->SwapRow(place, row);
    Touch(rows.front().first, column);
    emit dataChanged(index(rows.front().first, 0), index(rows.back().first, columnCount() - 1));
}

void ListTableModel::InsertRows(const std::vector<int>& places, std::vector<ListRow> rows) {
    const std::vector<Run> runs = RunsOf(places);
    if (runs.empty()) return;
    if (runs.size() > kMostGaps) {
        beginResetModel();
        m_table->PutRows(places, std::move(rows));
        endResetModel();
    } else {
        auto from = rows.begin();
        for (const auto& [first, count] : runs) {
            beginInsertRows({}, first, first + count - 1);
            m_table->InsertRows(first,
                                {std::make_move_iterator(from), std::make_move_iterator(from + count)});
            endInsertRows();
            from += count;
        }
    }
    Touch(places.front());
}

std::vector<ListRow> ListTableModel::TakeRows(const std::vector<int>& places) {
    const std::vector<Run> runs = RunsOf(places);
    if (runs.empty()) return {};
    Touch(places.front());
    if (runs.size() > kMostGaps) {
        beginResetModel();
        std::vector<ListRow> taken = m_table->TakeRows(places);
        endResetModel();
        return taken;
    }
    std::vector<ListRow> taken(places.size());
    auto to = taken.end();
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
        beginRemoveRows({}, run->first, run->first + run->count - 1);
        std::vector<ListRow> rows = m_table->TakeRows(run->first, run->count);
        endRemoveRows();
        to = std::move_backward(rows.begin(), rows.end(), to);
    }
    return taken;
}

void ListTableModel::Reorder(int first, const std::vector<std::uint32_t>& order) {
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    m_table->Reorder(first, order);
    FollowRows(first, order);
    Touch(first);
    emit layoutChanged({}, VerticalSortHint);
}

// What is selected goes with its row.
void ListTableModel::FollowRows(int first, const std::vector<std::uint32_t>& order) {
    const QModelIndexList before = persistentIndexList();
    if (before.isEmpty()) return;
    std::vector<int> places(order.size());
    for (std::size_t place = 0; place < order.size(); ++place)
        places[order[place]] = first + static_cast<int>(place);
    QModelIndexList after;
    for (const QModelIndex& each : before) {
        const auto place = static_cast<std::size_t>(each.row() - first);
        const bool isMoved = each.row() >= first && place < places.size();
        after << (isMoved ? index(places[place], each.column()) : each);
    }
    changePersistentIndexList(before, after);
}

void ListTableModel::InsertColumn(int at, const ListColumn& column) {
    beginInsertColumns({}, at, at);
    m_table->InsertColumn(at, column);
    endInsertColumns();
    Touch(m_touchedRow, at);
}

void ListTableModel::RemoveColumn(int at) {
    beginRemoveColumns({}, at, at);
    m_table->RemoveColumn(at);
    endRemoveColumns();
    Touch(m_touchedRow, at);
}

void ListTableModel::SetColumn(int at, const ListColumn& column) {
    m_table->SetColumn(at, column);
    Touch(m_touchedRow, at);
    emit headerDataChanged(Qt::Horizontal, at, at);
    if (rowCount() > 0) emit dataChanged(index(0, at), index(rowCount() - 1, at));
}

void ListTableModel::Touch(int row, int column) {
    m_touchedRow = row;
    m_touchedColumn = column;
}

QModelIndex ListTableModel::Touched(int currentColumn) const {
    const int column = std::max(m_touchedColumn < 0 ? currentColumn : m_touchedColumn, 0);
    return index(std::min(m_touchedRow, rowCount() - 1), std::min(column, columnCount() - 1));
}

}  // namespace sheetwright

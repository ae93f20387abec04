#pragma once

// A list as the window's table shows it. Changes come from commands that can be undone: edited cells become
// one, and all others go through the functions here, which tell the view.

#include "fields/list_table.h"

#include <QAbstractTableModel>
#include <QColor>

#include <functional>
#include <vector>

namespace sheetwright {

class Application;

class ListTableModel : public QAbstractTableModel {
  public:
    // Shows nothing until `SetTable`.
    explicit ListTableModel(const Application& application, QObject* parent = nullptr);

    // `table` lives until the next one is set.
    void SetTable(ListTable& table);
    [[nodiscard]] ListTable& Table() const { return *m_table; }

    // What a person has typed into a cell.
    std::function<void(const QModelIndex& cell, const QString& text)> Typed;
    // Behind cells whose value doesn't fit their column's type.
    void SetMisfitColour(const QColor& colour) { m_misfit = colour; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    using PlacedRows = std::vector<std::pair<int, ListRow>>;
    // Exchanges rows with those in the table; places ascend. The first row differs in `column`.
    void SwapRows(PlacedRows& rows, int column);
    void InsertRows(const std::vector<int>& places, std::vector<ListRow> rows);
    std::vector<ListRow> TakeRows(const std::vector<int>& places);
    void Reorder(int first, const std::vector<std::uint32_t>& order);
    void InsertColumn(int at, const ListColumn& column);
    void RemoveColumn(int at);
    void SetColumn(int at, const ListColumn& column);

    // The cell where the last change was, which may have been one of whole rows.
    [[nodiscard]] QModelIndex Touched(int currentColumn) const;

  private:
    [[nodiscard]] bool Fits(const QModelIndex& cell) const;
    [[nodiscard]] QString Advice(const QString& type) const;
    void Touch(int row, int column = -1);
    void FollowRows(int first, const std::vector<std::uint32_t>& order);

    const Application& m_application;
    ListTable m_none;
    ListTable* m_table = &m_none;
    QColor m_misfit;
    int m_touchedRow = 0;
    int m_touchedColumn = -1;  // none: whichever is current
};

}  // namespace sheetwright

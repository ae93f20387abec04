#pragma once

// A list of which a row stays selected, wherever a person clicks in it.

#include <QListWidget>

namespace sheetwright {

class PickList : public QListWidget {
  public:
    explicit PickList(QWidget* parent) : QListWidget(parent) { setUniformItemSizes(true); }

  protected:
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent*) const override {
        return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
    }
};

}  // namespace sheetwright

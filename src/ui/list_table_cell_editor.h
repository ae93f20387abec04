#pragma once

// The editor that opens over a cell. Enter ends it; with Alt or Shift it breaks the line.

#include <QPointer>
#include <QStyledItemDelegate>

#include <functional>

namespace sheetwright {

class ListTableCellEditor : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // The person has ended the editor with Enter.
    std::function<void()> Entered;
    // What breaks a line in a value that has no line break yet.
    QString LineBreak = QStringLiteral("\r\n");

    // Takes over what is typed into the editor that is open, if one is.
    void Commit();

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool PressEnter(Qt::KeyboardModifiers modifiers);

    mutable QPointer<QWidget> m_editor;
};

}  // namespace sheetwright

#pragma once

// The editor of a field with a list: a text that one may type or choose.

#include "ui/field_editor.h"

#include <QComboBox>

class QStringListModel;

namespace sheetwright {

class SingleLineEdit;

// Its text stands where a line of text would; the arrow lies inside the field.
class ListBox : public QComboBox {
  public:
    explicit ListBox(QWidget* parent);

    [[nodiscard]] SingleLineEdit& Line() const { return *m_line; }
    void Dress(const EditorLook& look);
    void SetItems(const QStringList& items);

    void showPopup() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;  // turns the page, not the list

  private:
    void PlaceLine();

    SingleLineEdit* m_line;
    QStringListModel* m_items;
    EditorLook m_look;
};

class ListEditor : public FieldEditor {
  public:
    ListEditor(usrEntry& entry, QWidget& frame, ReportStep report);

    [[nodiscard]] QWidget& Widget() override;
    void Load(const usrEntry& entry) override;
    void TakeText(const QString& text) override;
    void Dress(const EditorLook& look) override;
    void SelectAll() override;
    bool Press(const QKeyEvent& key) override;
    void ClosePopups() override;
    [[nodiscard]] QWidget* PopupKeys() override;
    void ChooseInPopup() override;
    [[nodiscard]] double NarrowestTwips() const override;
    [[nodiscard]] bool HasArrow() const override { return true; }

  private:
    void Pick(int index);
    [[nodiscard]] int Beside(int step) const;
    [[nodiscard]] int FirstLike(const QString& text) const;

    usrEntry& m_entry;
    ReportStep m_report;
    ListBox* m_box;  // the frame's
};

}  // namespace sheetwright

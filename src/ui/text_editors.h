#pragma once

// The editor of a text field: a line, or several lines that wrap.

#include "ui/field_editor.h"

#include <QPlainTextEdit>

namespace sheetwright {

class SingleLineEdit;

class LineEditor : public FieldEditor {
  public:
    LineEditor(usrEntry& entry, QWidget& frame, ReportStep report);

    [[nodiscard]] QWidget& Widget() override;
    void Load(const usrEntry& entry) override;
    void TakeText(const QString& text) override;
    void Dress(const EditorLook& look) override;
    void SelectAll() override;
    bool Press(const QKeyEvent& key) override;

  private:
    SingleLineEdit* m_edit;  // the frame's
};

// Values have CR LF for a line break, the widget has one character.
class LinesEdit : public QPlainTextEdit {
  public:
    explicit LinesEdit(QWidget* parent);

    void Dress(const EditorLook& look);
    [[nodiscard]] QString Value() const;
    // With nothing to undo.
    void SetValue(const QString& text);
    // Unlike `SetValue` it can be undone.
    void ReplaceValue(const QString& text);

  protected:
    void insertFromMimeData(const QMimeData* source) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void BreakLongWordsOf(QStringView text);
};

class LinesEditor : public FieldEditor {
  public:
    LinesEditor(usrEntry& entry, QWidget& frame, ReportStep report);

    [[nodiscard]] QWidget& Widget() override;
    void Load(const usrEntry& entry) override;
    void TakeText(const QString& text) override;
    void Dress(const EditorLook& look) override;
    void SelectAll() override;
    bool Press(const QKeyEvent& key) override;

  private:
    LinesEdit* m_edit;  // the frame's
    QString m_told;     // the text that the model has, as the widget has it
};

// What all lines of text do with keys: undo, redo, paste. True when it was done.
bool PressInLine(SingleLineEdit& edit, const QKeyEvent& key);
// The line tells the model its text and selection whenever they change.
void ConnectLine(usrEntry& entry, SingleLineEdit& edit, const ReportStep& report);

}  // namespace sheetwright

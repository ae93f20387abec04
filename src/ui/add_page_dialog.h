#pragma once

// The Add Page dialog: which of the form's designs the new page shall have.

#include <QDialog>

#include <cstdint>

class QListWidget;
class QPushButton;

namespace sheetwright {

class frmSheetwright;

class AddPageDialog : public QDialog {
  public:
    // Opens on the design of the page on screen.
    AddPageDialog(const frmSheetwright& document, QWidget* parent);

    // From 1; 0 when none is selected.
    [[nodiscard]] std::int16_t Design() const;

  private:
    void FillDesigns(const frmSheetwright& document);

    QListWidget* m_lstDesign;
    QPushButton* m_cmdAdd;
};

}  // namespace sheetwright

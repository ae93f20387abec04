#pragma once

// The Goto Page dialog: all pages of a form, to move to one of them.

#include <QDialog>

namespace sheetwright {

class PickList;
class frmSheetwright;

class frmGoto : public QDialog {
  public:
    // Opens on the page on screen. `document` lives longer.
    frmGoto(frmSheetwright& document, QWidget* parent);

    // One row for each page; that of the page on screen is selected.
    void RefreshPageList();

  private:
    [[nodiscard]] QWidget* MakeButtons();
    // Moves to the selected page and closes. A failure is told: then all is as it was, and the dialog stays.
    void cmdGoto_Click();

    frmSheetwright& m_document;
    PickList* m_lstPages;
};

// Shows the dialog, modally.
void ShowGoto(QWidget* parent, frmSheetwright& document);

}  // namespace sheetwright

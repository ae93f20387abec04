#pragma once

// The Add Page dialog: a page of one of the form's designs, or of one that is merged in from a template, at a
// place of the person's choice.

#include "document/pages.h"

#include <QDialog>

#include <cstdint>
#include <functional>
#include <optional>

class QBoxLayout;
class QButtonGroup;
class QComboBox;
class QGridLayout;

namespace sheetwright {

class PickList;
class TemplateList;
class frmSheetwright;

class frmAddPage : public QDialog {
  public:
    // Opens on the design of the page on screen and on the end of the form. `document` lives longer.
    frmAddPage(frmSheetwright& document, QWidget* parent);

    // Brings designs and page numbers up to date; design and place are then those at the opening.
    void UpdatePageList();

    // Merges the template at `path`. A template of one design places its page at once, which closes the
    // dialog; of several the person picks one. A failure is told.
    void GetPages(const QString& path);

  private:
    void BuildDesigns(QGridLayout& lists);
    void BuildTemplates(QGridLayout& lists);
    void BuildPlaces(QBoxLayout& column);
    void BuildButtons(QBoxLayout& column);
    void AddPlace(Placement mode, const QString& caption);

    void optPage_Click(Placement mode);
    void cmdAdd_Click();
    void cmdBrowse_Click();
    [[nodiscard]] Placement Mode() const;
    [[nodiscard]] std::optional<std::int16_t> Position() const;
    // What a button does. The dialog closes when `step` is true, and when it failed behind the point where
    // the new page is in the form; merged designs show otherwise.
    void Run(const QString& name, const std::function<bool()>& step);

    frmSheetwright& m_document;
    PickList* m_lstDesign;
    TemplateList* m_lvNew;
    QButtonGroup* m_optPage;  // numbered as `Placement`
    QComboBox* m_cboPage = nullptr;
};

// Shows the dialog, modally.
void ShowAddPage(QWidget* parent, frmSheetwright& document);

}  // namespace sheetwright

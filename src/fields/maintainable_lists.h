#pragma once

// Lists that are kept in files, once for all forms: how those that a form brings with it come into the list
// folder, and how the row of the chosen item fills other fields of the page.

#include <QSet>
#include <QString>

#include <map>
#include <memory>

namespace sheetwright {

class frmSheetwright;

// Puts the lists that a form has brought into the folder "LISTS" of the list folder, if a field of the form
// takes its items from there. "ListIndex.txt" in the form's temporary directory names them, one in a line:
// the name of the files there, a comma, the list's path below "LISTS". A list that is in the folder stays as
// it is. What can't be installed, or would lie elsewhere, is passed over without a word; so are the lists of
// an absurd index (more than 1 MB), those behind the first thousand, and what is beyond 1 GB altogether.
void SheetwrightLoadLists(const frmSheetwright& document);

// The list file of the editor goes to the row of the selected item, and from there all other text fields
// take their columns: those of the same `MultiRecordIndex` whose data source names the list. Sets `Changed`
// and `PageChanged` when a text becomes another. A column that is missing is told to the person where the
// data source has no other alternative behind it; elsewhere this raises 5 or 9.
void FillFromList(frmSheetwright& document);

// The same for fields that are filled by other means than the editor. Each list is read once, so that many
// records can be looked up, and a column that is missing is told once.
class ListLookUps {
  public:
    explicit ListLookUps(frmSheetwright& document);
    ListLookUps(const ListLookUps&) = delete;
    ListLookUps& operator=(const ListLookUps&) = delete;
    // Formulas read no list any more.
    ~ListLookUps();

    // As if a person had chosen the item of `list` that is the text of text element `number`; the first of
    // equal ones. Formulas then read that row. Does nothing for a list that is no "@<list>,<column>" or isn't
    // there; without such an item no row is current.
    void Fill(int number, const QString& list);

  private:
    struct OpenList;
    [[nodiscard]] OpenList& Opened(const QString& list);

    frmSheetwright& m_document;
    std::map<QString, std::unique_ptr<OpenList>> m_lists;  // by the field's list
    QSet<QString> m_told;                                  // alternatives whose columns are missing
};

}  // namespace sheetwright

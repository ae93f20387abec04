#pragma once

// How the values of one record come into the fields of a page, and when they begin a new line or page.

#include "fields/maintainable_lists.h"
#include "import/import_binding.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace sheetwright {

class CsvColumn;
class frmSheetwright;
struct TextElement;

// Ends the import, also one whose pages never come to an end, when the person wants that: raises
// `ImportStopped`.
void EndIfStopped(const frmSheetwright& document);

class RecordPass {
  public:
    // `linkedNextPage`, when given, is the place of the page that was added last of those that come in pairs;
    // it moves on with each page that is added. All live longer than the pass.
    RecordPass(frmSheetwright& document, const std::vector<BoundColumn>& columns, int* linkedNextPage);

    // Writes the current record whole on one line, `CurrentRecord` of the document. A trigger takes back what
    // was written of it in fields, not in check boxes, and the record starts again on the next line or a new
    // page. Raises 6 for a line that is no 16-bit number, what adding a page raises, and `ImportStopped`.
    void WriteRecord();

  private:
    enum class Restart { None, OnLine, OnPage };
    struct Column {
        const BoundColumn* bound;
        std::optional<QString> previous;  // what it last held on this page
    };

    [[nodiscard]] Restart WriteColumns();
    [[nodiscard]] Restart WriteColumn(const Column& column, const QString& value);
    [[nodiscard]] Restart TriggerOf(const Column& column, const BoundElement& element,
                                    const QString& value) const;
    [[nodiscard]] bool StartsPage(const Column& column, const BoundElement& element,
                                  const QString& value) const;
    [[nodiscard]] bool StartsLine(const Column& column, const BoundElement& element,
                                  const QString& value) const;
    void Write(const CsvColumn& column, const BoundElement& element, const QString& value);
    void WriteField(const CsvColumn& column, const BoundElement& element);
    void WriteCheck(int number, const QString& value);

    void Begin(Restart restart);
    void Undo();
    void AddPageBehind();
    [[nodiscard]] TextElement& Field(const BoundElement& element) const;

    frmSheetwright& m_document;
    std::vector<Column> m_columns;
    int* m_linkedNextPage;
    ListLookUps m_lists;
    std::int16_t m_maxLine = 0;  // of all elements that were reached so far
    std::vector<std::pair<QString, int>> m_undo;
};

}  // namespace sheetwright

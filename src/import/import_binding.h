#pragma once

// Which columns of a table fill which fields and check boxes of the page on screen, and by which columns its
// records are ordered.

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

namespace sheetwright {

class CsvColumn;
class CsvTable;
class frmSheetwright;
class ProgressBar;

// A field or check box that takes a column, and what its design says of the values that come in. A key that
// the design lacks stands for its default.
struct BoundElement {
    bool isField = true;
    int number = 0;                    // in `Entries` or `Checks`
    std::optional<std::int16_t> line;  // from 0, on the page; none when it is no 16-bit number
    bool newPageOnReoccur = false;
    bool newPageOnChange = false;
    bool newLineOnReoccur = false;
    bool newLineOnChange = false;
    QString list;  // "@<list>,<column>" for a value that is looked up
};

struct BoundColumn {
    const CsvColumn* column = nullptr;
    std::vector<BoundElement> elements;
};

struct ImportBinding {
    std::vector<BoundColumn> columns;  // in the order in which they are written
    QStringList keys;                  // names of columns by key level, from 1: level n stands at n - 1
};

// Compares the data sources of all elements with each column, as "<column>,<sourceFolder>". Of columns with
// equal names the first counts. Fields come before check boxes.
[[nodiscard]] ImportBinding BindColumns(const frmSheetwright& document, CsvTable& table,
                                        const QString& sourceFolder, ProgressBar& bar);

// Each level without a column takes that of the level before, those in front the first there is. Whether
// there was one.
[[nodiscard]] bool FillKeyLevels(QStringList& keys);

// Key columns lead, in the order of their levels.
void PutKeysFirst(ImportBinding& binding);

// For `CsvTable::Sort`: a column that is a key again orders nothing more.
[[nodiscard]] QStringList SortListOf(const QStringList& keys);

}  // namespace sheetwright

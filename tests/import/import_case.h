#pragma once

// Forms and tables drawn at random, for comparing two imports: the same seed always draws the same case.

#include "import/import_model.h"

#include <QByteArray>

#include <cstdint>
#include <random>
#include <vector>

namespace sheetwright {

class FormText;

// What kinds of forms and tables are drawn; percentages of what a record, column or case may have.
struct CaseKind {
    int mostLines = 1;     // of a page
    int pageTriggers = 0;  // percent of the columns
    int lineTriggers = 0;  // percent of the columns
    int keyLevels = 0;     // percent of the fields
    int mostChecks = 0;    // of a design
    int types = 0;         // percent of the columns
    int links = 0;         // percent of the cases
    int lists = 0;         // percent of the fields
    int formulas = 0;      // percent of the fields without a trigger
    int oddSources = 0;    // percent of the sources, and of the columns' names
    int equalNames = 0;    // percent of the columns
    int mostDesigns = 1;
    int mostPages = 1;
};

struct ImportCase {
    ModelForm form;
    ModelTable table;
    int page = 1;  // on screen when the import begins
};

// `folder` is the driver's, as sources name it.
[[nodiscard]] ImportCase DrawnCase(const CaseKind& kind, const QString& folder, std::uint32_t seed);

// The list "LISTS\town" that drawn forms look things up in.
[[nodiscard]] ModelTable TownList();

[[nodiscard]] FormText TextOf(const ModelForm& form);
[[nodiscard]] QByteArray LinksOf(const ModelForm& form);
[[nodiscard]] QByteArray CsvOf(const ModelTable& table);
[[nodiscard]] QByteArray InfOf(const ModelTable& table);

}  // namespace sheetwright

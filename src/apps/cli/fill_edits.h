#pragma once

// What `fill` does to a form, one edit at a time: a value set, a page added, a table taken.

#include "apps/cli/fill_import.h"

#include <QString>

#include <cstdint>
#include <map>
#include <optional>
#include <variant>
#include <vector>

namespace sheetwright {
class frmSheetwright;
}

namespace sheetwright::cli {

struct SetValue {
    int page = 0;
    QString name;
    QString value;
};

struct InsertPage {
    QString design;  // number or title
    int mode = 1;
    std::optional<int> position;
};

using Edit = std::variant<SetValue, InsertPage, ImportTable>;

// "PAGE:NAME=VALUE", cut at the first ":" and the first "=" behind it. Raises UsageError when it isn't of
// that form.
[[nodiscard]] SetValue ParseSetValue(const QString& text);

// "DESIGN[:MODE[:POSITION]]", the numbers cut from the end, since a title may hold ":". Raises UsageError for
// a mode other than 0 to 3, and for mode 2 or 3 without position.
[[nodiscard]] InsertPage ParseInsertPage(const QString& text);

// Applies edits in order. A page that gets its first value, and a page added, has lines for all its elements.
class FormEditor {
  public:
    explicit FormEditor(frmSheetwright& document) : m_document(document) {}

    // Raise CommandError for a page, name or design that the form doesn't have; see `TakeTable`, too.
    void Apply(const SetValue& edit);
    void Apply(const InsertPage& edit);
    void Apply(const ImportTable& edit);

    // What was done so far.
    struct Counts {
        int valuesSet = 0;
        int pagesAdded = 0;  // those of imports, too
        std::vector<ImportResult> imports;
    };
    [[nodiscard]] const Counts& Done() const { return m_done; }

  private:
    const std::vector<QString>& NamesOf(int page);
    void ShowPage(int page);
    [[nodiscard]] std::int16_t DesignNamed(const QString& text) const;

    frmSheetwright& m_document;
    Counts m_done;
    std::map<int, std::vector<QString>> m_names;  // of the elements, by design, in record order
};

}  // namespace sheetwright::cli

#pragma once

// Translation at run time. The English text itself is the key, so a program without a dictionary, or a text
// that the dictionary lacks, simply shows its English.

#include "formula/value.h"
#include "import/csv_table.h"
#include "core/keyed_collection.h"

#include <QString>

#include <cstdint>
#include <memory>

namespace sheetwright {

// The process-wide state of translation: the dictionary file twice, sorted by English and by translation, and
// the record at which each first character begins.
class Dictionary {
  public:
    Dictionary();

    // Opens a dictionary. A missing file is no failure and turns all translation off, as for a fresh one.
    void Load(const QString& path);
    [[nodiscard]] bool IsOpen() const;

    // The translated text with its markers filled: see `Translate`.
    [[nodiscard]] QString Translate(const QString& text, const QString& parameters = QString()) const;

  private:
    [[nodiscard]] QString Lookup(const QString& text) const;

    std::unique_ptr<CsvTable> m_dictTable;
    std::unique_ptr<CsvTable> m_dictReverseTable;
    KeyedCollection<std::int32_t> m_dictIndex;
    KeyedCollection<std::int32_t> m_dictReverseIndex;
};

// The N-th value (from 1) of a parameter string whose values are separated by "¦"; the last one when fewer exist.
[[nodiscard]] QString GetParam(const QString& parameters, int n);

}  // namespace sheetwright

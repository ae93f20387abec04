#pragma once

// What an expression can read and write: the members of a document that formulas see, and the installation's
// conventions. A document makes one for each pass; tests make their own without any document.

#include "core/conventions.h"
#include "document/memory_block.h"
#include "formula/value.h"

#include <QString>

#include <cstdint>

namespace sheetwright {

class Application;
class CsvCache;
class CsvTable;

struct EvaluationContext {
    const Application& application;  // conventions, dictionary, list folder, error log
    const MemoryBlock& memory;
    KeyedCollection<QString>& FormVars;  // shared by all open documents
    const TruthWords& words;
    const QString& MyTempDir;  // working folder, with trailing separator

    std::int16_t& DataPageNum;  // `PAGENUMBER`; the page being computed during a full recalculation
    std::int16_t& MePage;       // page whose values a reference prefers; 0 for none
    Value& Me;                  // the value of the formula's own field

    CsvTable* DriverData = nullptr;  // record of the last import driver; none reads as no file
    CsvTable* EntryList = nullptr;   // list attached to the field being edited; none reads as no such field
    CsvCache* Lists = nullptr;       // lists looked up in this pass; without it each look-up reads its file
};

}  // namespace sheetwright

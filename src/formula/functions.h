#pragma once

// Every function that a formula can call, by its upper-cased name. Each receives the raw argument text
// between the parentheses and decides by itself how to cut it and which arguments to evaluate.

#include "formula/value.h"

#include <QStringList>
#include <QStringView>

namespace sheetwright {

class Evaluator;

using FormulaFunction = Value (*)(Evaluator& evaluator, QStringView arguments);

// The function of that name (upper-cased), or none: an unknown name silently gives Empty.
[[nodiscard]] FormulaFunction FindFunction(QStringView upperName);

// All function names and all keywords without parentheses, for tools that check formulas.
[[nodiscard]] QStringList FunctionNames();
[[nodiscard]] QStringList KeywordNames();

}  // namespace sheetwright

#pragma once

// The functions of the formula language, family by family. Each receives the raw text between its
// parentheses.

#include "formula/value.h"

#include <QStringView>

namespace sheetwright {

class Evaluator;

// Arithmetic
[[nodiscard]] Value FAdd(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FSubtract(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FMultiply(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FDivide(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FRemainder(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FNegate(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FRound(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FTruncate(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FAverage(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FPercentage(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FPercentageOf(Evaluator& evaluator, QStringView arguments);

// Extremes, which let readings over and under an instrument's range through as text
[[nodiscard]] Value FMaximum(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FMinimum(Evaluator& evaluator, QStringView arguments);

// Comparison
[[nodiscard]] Value FEqual(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FNotEqual(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FGreaterThan(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FLessThan(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FInRange(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FInString(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FIsEmpty(Evaluator& evaluator, QStringView arguments);

// Dates
[[nodiscard]] Value FInMonth(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FInYear(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FDayOfWeek(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FToday(Evaluator& evaluator, QStringView arguments);

// Logic
[[nodiscard]] Value FAnd(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FOral(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FNot(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FIf(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FInterpret(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FOverall(Evaluator& evaluator, QStringView arguments);

// Text
[[nodiscard]] Value FConcatenate(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FLength(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FMid(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FStripNonAlpha(Evaluator& evaluator, QStringView arguments);

// The field itself and the pages of the document
[[nodiscard]] Value FSetMe(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FSum(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FPrevious(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FCountDesignPages(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FDesignPageNumbers(Evaluator& evaluator, QStringView arguments);

// Files: in the document's working folder, and lists
[[nodiscard]] Value FValidationPassed(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FVar(Evaluator& evaluator, QStringView arguments);
[[nodiscard]] Value FListLookup(Evaluator& evaluator, QStringView arguments);

// A reserved name without effect: its arguments are not even evaluated.
[[nodiscard]] Value FValidate(Evaluator& evaluator, QStringView arguments);

}  // namespace sheetwright

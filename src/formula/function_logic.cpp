#include "core/failure.h"
#include "formula/evaluator.h"
#include "formula/function_arguments.h"
#include "formula/function_families.h"
#include "formula/value_conversion.h"

#include <vector>

namespace sheetwright {

namespace {

// All items are evaluated. One that is no Boolean counts as the item before it did, as False when it is the
// first.
template <typename Operation>
bool Fold(Evaluator& evaluator, QStringView arguments, bool start, Operation combine) {
    ArgumentCutter cutter(arguments);
    bool result = start;
    bool item = false;
    while (const std::optional<QStringView> expression = cutter.Next()) {
        Suppressing([&] { item = ToBoolean(evaluator.Evaluate(*expression), ConventionsIn(evaluator)); });
        result = combine(result, item);
    }
    return result;
}

}  // namespace

Value FAnd(Evaluator& evaluator, QStringView arguments) {
    return Fold(evaluator, arguments, true, [](bool left, bool right) { return left && right; });
}

Value FOral(Evaluator& evaluator, QStringView arguments) {
    return Fold(evaluator, arguments, false, [](bool left, bool right) { return left || right; });
}

// The complement of all bits: only -1, which is True, has none left.
Value FNot(Evaluator& evaluator, QStringView arguments) {
    return ~ToInt32(StrictNumberOf(evaluator.Evaluate(arguments), ConventionsIn(evaluator))) != 0;
}

Value FIf(Evaluator& evaluator, QStringView arguments) {
    ArgumentCutter cutter(arguments);
    const QStringView condition = cutter.Next().value_or(QStringView());
    const bool isTrue = ToBoolean(evaluator.Evaluate(condition), ConventionsIn(evaluator));
    std::optional<QStringView> branch = cutter.Next();
    if (!isTrue) branch = cutter.Next();
    return branch ? evaluator.Evaluate(*branch) : Value();
}

Value FInterpret(Evaluator& evaluator, QStringView arguments) {
    ArgumentCutter cutter(arguments);
    const RepeatedArgument key(evaluator, cutter.Next().value_or(QStringView()));
    std::vector<QString> pairs;
    while (const std::optional<QStringView> item = cutter.Next())
        pairs.push_back(TrimmedNormalisedText(evaluator, evaluator.Evaluate(*item)));

    const QString wanted = TrimmedNormalisedText(evaluator, key.First());
    for (std::size_t index = 0; index + 1 < pairs.size(); index += 2)
        if (pairs[index] == wanted) return pairs[index + 1];
    return key.Again();
}

// Until the pass word has been seen a fail word is ignored, unless the pass word is "".
Value FOverall(Evaluator& evaluator, QStringView arguments) {
    ArgumentReader reader(evaluator, arguments);
    const QString pass = TrimmedNormalisedText(evaluator, reader.NextOrEmpty());
    const QString fail = TrimmedNormalisedText(evaluator, reader.NextOrEmpty());
    bool isArmed = pass.isEmpty();
    bool hasFailed = false;
    while (const std::optional<Value> item = reader.Next()) {
        const QString verdict = TrimmedNormalisedText(evaluator, *item);
        if (isArmed && verdict == fail) hasFailed = true;
        if (verdict == pass) isArmed = true;
    }
    return hasFailed ? fail : pass;
}

}  // namespace sheetwright

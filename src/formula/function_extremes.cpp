// Instruments report readings over and under their range as ">100" and "<1". Such a reading decides an
// extreme whatever the other readings are, and comes out as it went in.

#include "formula/evaluator.h"
#include "formula/function_arguments.h"
#include "formula/function_families.h"
#include "formula/value_conversion.h"

namespace sheetwright {

namespace {

// Where a running minimum starts: above any reading.
constexpr double kAboveAll = 1.79769313486232e307;

struct RunningMinimum {
    double number = kAboveAll;
    QString text;
    bool isUnset = true;

    void Take(double newNumber, const QString& newText) {
        number = newNumber;
        text = newText;
        isUnset = false;
    }
};

}  // namespace

// The maximum starts Empty and Empty counts as 0, so a list with no item above 0 has none. Forms rely on it.
Value FMaximum(Evaluator& evaluator, QStringView arguments) {
    ArgumentCutter cutter(arguments);
    Value maximum;
    double highest = 0;
    while (const std::optional<QStringView> expression = cutter.Next()) {
        const RepeatedArgument item(evaluator, *expression);
        const QString text = TextIn(evaluator, item.First());
        if (text.isEmpty()) continue;
        if (text.startsWith(u'>')) return text;
        const double number = NumberIn(evaluator, item.Again());
        if (number > highest) maximum = highest = number;
    }
    return maximum;
}

Value FMinimum(Evaluator& evaluator, QStringView arguments) {
    ArgumentReader reader(evaluator, arguments);
    RunningMinimum minimum;
    while (const std::optional<Value> item = reader.Next()) {
        const QString text = TextIn(evaluator, *item);
        if (text.isEmpty()) continue;
        if (text.startsWith(u'<')) return text;
        if (text.startsWith(u'>')) {
            if (minimum.isUnset) minimum.Take(NumberIn(evaluator, text.sliced(1)), text);
            continue;
        }
        const double number = NumberIn(evaluator, text);
        if (number < minimum.number) minimum.Take(number, text);
    }
    if (minimum.isUnset) return Empty{};
    const bool isNumber = NumberIn(evaluator, minimum.text) == minimum.number;
    return isNumber ? Value(minimum.number) : Value(minimum.text);
}

}  // namespace sheetwright

#include "core/application.h"
#include "core/failure.h"
#include "formula/evaluator.h"
#include "formula/function_arguments.h"
#include "formula/function_families.h"
#include "formula/value_conversion.h"

namespace sheetwright {

namespace {

double NumberOfWhole(Evaluator& evaluator, QStringView arguments) {
    return NumberIn(evaluator, evaluator.Evaluate(arguments));
}

// A whole number as text, "1E+20" and the like included, as a Long.
std::int32_t LongOf(const QString& text, const Conventions& conventions) {
    return ToInt32(StrictNumberOf(text, conventions));
}

}  // namespace

Value FAdd(Evaluator& evaluator, QStringView arguments) {
    ArgumentReader reader(evaluator, arguments);
    double sum = 0;
    while (const std::optional<Value> item = reader.Next())
        sum = Finite(sum + NumberIn(evaluator, *item));
    return sum;
}

Value FSubtract(Evaluator& evaluator, QStringView arguments) {
    ArgumentReader reader(evaluator, arguments);
    const double minuend = reader.NextNumber();
    return Finite(minuend - reader.NextNumber());
}

Value FMultiply(Evaluator& evaluator, QStringView arguments) {
    ArgumentReader reader(evaluator, arguments);
    double product = reader.NextNumber();
    while (const std::optional<Value> item = reader.Next())
        product = Finite(product * NumberIn(evaluator, *item));
    return product;
}

Value FDivide(Evaluator& evaluator, QStringView arguments) {
    Value result;
    Suppressing([&] {
        ArgumentReader reader(evaluator, arguments);
        const double dividend = reader.NextNumber();
        const double divisor = reader.NextNumber();
        if (divisor != 0) result = Finite(dividend / divisor);
    });
    return result;
}

Value FRemainder(Evaluator& evaluator, QStringView arguments) {
    Value result;
    Suppressing([&] {
        ArgumentReader reader(evaluator, arguments);
        const std::int64_t dividend = ToInt32(reader.NextNumber());
        const std::int64_t divisor = ToInt32(reader.NextNumber());
        if (divisor != 0) result = static_cast<std::int32_t>(dividend % divisor);
    });
    return result;
}

Value FNegate(Evaluator& evaluator, QStringView arguments) {
    return 0.0 - NumberOfWhole(evaluator, arguments);
}

Value FRound(Evaluator& evaluator, QStringView arguments) {
    return ToInt32(NumberOfWhole(evaluator, arguments));
}

// Works on the text of the number, so that what people see is what is cut. A text with an exponent is cut at
// its separator like any other.
Value FTruncate(Evaluator& evaluator, QStringView arguments) {
    const Conventions& conventions = ConventionsIn(evaluator);
    const QString text = DoubleText(NumberOfWhole(evaluator, arguments), conventions);
    const qsizetype separator = text.indexOf(conventions.DecimalSeparator);
    if (separator < 0) return LongOf(text, conventions);
    return Finite(ToNumber(QStringView(text).first(separator + 1), conventions));
}

Value FAverage(Evaluator& evaluator, QStringView arguments) {
    ArgumentReader reader(evaluator, arguments);
    double sum = 0;
    int count = 0;
    for (; const std::optional<Value> item = reader.Next(); ++count)
        sum = Finite(sum + NumberIn(evaluator, *item));
    return sum / count;
}

Value FPercentage(Evaluator& evaluator, QStringView arguments) {
    ArgumentReader reader(evaluator, arguments);
    const double part = reader.NextNumber();
    const double total = reader.NextNumber();
    if (total == 0) return QString();
    return Finite(part / total * 100);
}

Value FPercentageOf(Evaluator& evaluator, QStringView arguments) {
    ArgumentReader reader(evaluator, arguments);
    const double percent = reader.NextNumber();
    const double total = reader.NextNumber();
    if (total == 0) return QString();
    return Finite(percent / 100 * total);
}

}  // namespace sheetwright

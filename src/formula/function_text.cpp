#include "core/failure.h"
#include "formula/evaluator.h"
#include "formula/function_arguments.h"
#include "formula/function_families.h"
#include "formula/value_conversion.h"

namespace sheetwright {

namespace {

// Far beyond what a field can hold. A formula that doubles its own text again and again ends here.
constexpr qsizetype kMaxTextLength = 4'000'000;

}  // namespace

Value FConcatenate(Evaluator& evaluator, QStringView arguments) {
    ArgumentReader reader(evaluator, arguments);
    QString joined;
    while (const std::optional<Value> item = reader.Next()) {
        joined += TextIn(evaluator, *item);
        if (joined.size() > kMaxTextLength) throw Failure(failure::kOutOfMemory);
    }
    return joined;
}

Value FLength(Evaluator& evaluator, QStringView arguments) {
    return ToInt32(static_cast<double>(TextIn(evaluator, evaluator.Evaluate(arguments)).size()));
}

Value FMid(Evaluator& evaluator, QStringView arguments) {
    const auto integerOf = [&](const Value& value) {
        return ToInt32(StrictNumberOf(value, ConventionsIn(evaluator)));
    };
    ArgumentReader reader(evaluator, arguments);
    const QString text = reader.NextText();
    const std::int32_t start = integerOf(reader.NextOrEmpty());
    const std::int32_t length = integerOf(reader.NextOrEmpty());
    if (text.size() < start) return Empty{};
    if (start < 1 || length < 0) throw Failure(failure::kInvalidCall);
    return text.mid(start - 1, length);
}

// Letters and digits of every script stay.
Value FStripNonAlpha(Evaluator& evaluator, QStringView arguments) {
    const QString upper = TextIn(evaluator, evaluator.Evaluate(arguments)).toUpper();
    QString stripped;
    for (const char32_t character : QStringView(upper).toUcs4())
        if (QChar::isLetterOrNumber(character)) stripped += QChar::fromUcs4(character);
    return stripped;
}

}  // namespace sheetwright

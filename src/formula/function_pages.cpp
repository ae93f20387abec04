#include "core/application.h"
#include "core/text.h"
#include "formula/evaluator.h"
#include "formula/function_arguments.h"
#include "formula/function_families.h"
#include "formula/reference.h"
#include "formula/value_conversion.h"

#include <algorithm>

namespace sheetwright {

namespace {

// A field of a design, as functions that take one reference for themselves name it.
struct DesignField {
    std::int16_t design = 0;
    QString field;
};

// None when the text is no {FIELDS\...} reference or names no design.
std::optional<DesignField> DesignFieldOf(Evaluator& evaluator, QStringView arguments) {
    if (!arguments.startsWith(u'{')) return std::nullopt;
    const Reference reference = ParseReference(arguments, ConventionsIn(evaluator));
    if (!reference.IsGroup(u"FIELDS")) return std::nullopt;
    const std::int16_t design = DesignOf(evaluator.Context().memory, reference.Subject(), Qt::CaseSensitive);
    return design == 0 ? std::nullopt : std::optional(DesignField{design, reference.field});
}

std::int16_t DesignNamed(Evaluator& evaluator, QStringView expression) {
    const QString title = TextIn(evaluator, evaluator.Evaluate(expression));
    return DesignOf(evaluator.Context().memory, title, Qt::CaseInsensitive);
}

// Items of one page under the field's name, all of them, added to `sum`.
double SumWithPage(Evaluator& evaluator, const PageLines& lines, const QString& field, double sum) {
    for (int position = lines.Find(field); position > 0; position = lines.FindNext(field, position)) {
        const QStringView text = ValueOf(lines.Line(position));
        evaluator.Charge(1 + text.size());
        sum = Finite(sum + Finite(ToNumber(text, ConventionsIn(evaluator))));
    }
    return sum;
}

// The nearest page of the design before the current one; 0 for none.
std::int16_t PreviousPage(const EvaluationContext& context, std::int16_t design) {
    const std::vector<std::int16_t>& pages = context.memory.PagesOf(design);
    const auto behind = std::lower_bound(pages.begin(), pages.end(), context.DataPageNum);
    return behind == pages.begin() ? std::int16_t{0} : *std::prev(behind);
}

}  // namespace

Value FSetMe(Evaluator& evaluator, QStringView arguments) {
    Value value = evaluator.Evaluate(arguments);
    evaluator.NoteSideEffect();
    evaluator.Context().Me = std::move(value);
    return Empty{};
}

Value FSum(Evaluator& evaluator, QStringView arguments) {
    const std::optional<DesignField> wanted = DesignFieldOf(evaluator, arguments);
    if (!wanted) return Empty{};
    const MemoryBlock& memory = evaluator.Context().memory;
    const std::vector<std::int16_t>& pages = memory.PagesOf(wanted->design);
    evaluator.Charge(static_cast<qint64>(pages.size()));
    double sum = 0;
    for (const std::int16_t page : pages)
        sum = SumWithPage(evaluator, memory.DataPage(page), wanted->field, sum);
    return sum;
}

Value FPrevious(Evaluator& evaluator, QStringView arguments) {
    const EvaluationContext& context = evaluator.Context();
    const std::optional<DesignField> wanted = DesignFieldOf(evaluator, arguments);
    if (!wanted) return context.Me;
    const std::int16_t page = PreviousPage(context, wanted->design);
    if (page == 0) return context.Me;
    const PageLines& lines = context.memory.DataPage(page);
    const int position = lines.Find(wanted->field);
    return position == 0 ? context.Me : Value(ValueOf(lines.Line(position)).toString());
}

Value FCountDesignPages(Evaluator& evaluator, QStringView arguments) {
    const std::int16_t design = DesignNamed(evaluator, arguments);
    if (design == 0) return std::int16_t{0};
    return static_cast<std::int16_t>(evaluator.Context().memory.PagesOf(design).size());
}

Value FDesignPageNumbers(Evaluator& evaluator, QStringView arguments) {
    const std::int16_t design = DesignNamed(evaluator, arguments);
    if (design == 0) return Empty{};
    const std::vector<std::int16_t>& pages = evaluator.Context().memory.PagesOf(design);
    evaluator.Charge(static_cast<qint64>(pages.size()));
    QStringList numbers;
    for (const std::int16_t page : pages)
        numbers << QString::number(page);
    return numbers.join(u' ');
}

Value FValidate(Evaluator&, QStringView) {
    return Empty{};
}

}  // namespace sheetwright

#include "formula/reference.h"

#include "core/application.h"
#include "core/failure.h"
#include "core/text.h"
#include "formula/value_conversion.h"
#include "import/csv_table.h"

#include <algorithm>

namespace sheetwright {

namespace {

QString FieldText(QStringView line, int number, const Conventions& conventions) {
    Value field = GetCsvField(line, number, conventions);
    if (QString* text = std::get_if<QString>(&field)) return std::move(*text);
    return TextOf(field, conventions);
}

// Whether both fields of a reference are their own text: nothing is quoted, and no text that begins with a
// letter is a number. Nearly every reference is like that, and then costs no conversion.
bool IsTakenAsItStands(QStringView inside, qsizetype comma) {
    if (comma < 0 || comma + 1 == inside.size() || inside.contains(u'"')) return false;
    const char16_t first = inside[comma + 1].unicode() | 0x20;
    return first >= u'a' && first <= u'z';
}

Reference PartsOf(QStringView inside, const Conventions& conventions) {
    const qsizetype comma = inside.indexOf(u',');
    if (!IsTakenAsItStands(inside, comma))
        return {FieldText(inside, 1, conventions), FieldText(inside, 2, conventions)};
    const qsizetype end = inside.indexOf(u',', comma + 1);
    return {inside.first(comma).toString(),
            inside.sliced(comma + 1, (end < 0 ? inside.size() : end) - comma - 1).toString()};
}

// The page being computed when it has the design, otherwise the last page that has it; 0 for none.
std::int16_t PageToRead(const EvaluationContext& context, std::int16_t design) {
    const MemoryBlock& memory = context.memory;
    const bool isPage = context.MePage >= 1 && context.MePage <= memory.DataPageCount();
    if (isPage && memory.IsDesign(context.MePage, design)) return context.MePage;
    const std::vector<std::int16_t>& pages = memory.PagesOf(design);
    return pages.empty() ? std::int16_t{0} : pages.back();
}

Value ResolveField(const EvaluationContext& context, const Reference& reference) {
    const std::int16_t design = DesignOf(context.memory, reference.Subject(), Qt::CaseSensitive);
    if (design == 0) return Empty{};
    const std::int16_t page = PageToRead(context, design);
    if (page == 0) return Empty{};
    const PageLines& lines = context.memory.DataPage(page);
    const int position = lines.Find(reference.field);
    return position == 0 ? Value() : Value(ValueOf(lines.Line(position)).toString());
}

Value ResolveColumn(const EvaluationContext& context, CsvTable* table, const QString& name) {
    if (table == nullptr) return Empty{};
    const CsvColumn* column = nullptr;
    const bool missing = Ignoring([&] { column = &table->Columns().At(name); }).has_value();
    return missing ? Value()
                   : Value(FieldDisplayText(*column, context.application.conventions, context.words));
}

Value ResolveDriver(const EvaluationContext& context, const Reference& reference) {
    const bool isLoaded = context.DriverData != nullptr && !context.DriverData->FileName().isEmpty();
    return isLoaded ? ResolveColumn(context, context.DriverData, reference.field) : Value();
}

}  // namespace

Reference ParseReference(QStringView expression, const Conventions& conventions) {
    if (expression.size() < 2) throw Failure(failure::kInvalidCall);
    const QStringView inside = expression.sliced(1, expression.size() - 2);
    Reference reference = PartsOf(inside, conventions);
    reference.groupLength = reference.path.indexOf(u'\\');
    if (reference.groupLength < 0) throw Failure(failure::kInvalidCall);
    return reference;
}

Value ResolveReference(const EvaluationContext& context, QStringView expression) {
    const Reference reference = ParseReference(expression, context.application.conventions);
    if (reference.IsGroup(u"FIELDS")) return ResolveField(context, reference);
    if (reference.IsGroup(u"DRIVERS")) return ResolveDriver(context, reference);
    if (reference.IsGroup(u"LISTS")) return ResolveColumn(context, context.EntryList, reference.field);
    return Empty{};
}

std::int16_t DesignOf(const MemoryBlock& memory, QStringView title, Qt::CaseSensitivity sensitivity) {
    const auto& titles = memory.PageProps.Entries();
    const auto found = std::find_if(titles.begin(), titles.end(), [&](const auto& entry) {
        return entry.item.size() == title.size() && entry.item.compare(title, sensitivity) == 0;
    });
    return found == titles.end() ? std::int16_t{0} : ToInt16(static_cast<double>(found - titles.begin()) + 1);
}

}  // namespace sheetwright

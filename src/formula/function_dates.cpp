#include "core/application.h"
#include "core/failure.h"
#include "formula/evaluator.h"
#include "formula/function_arguments.h"
#include "formula/function_families.h"
#include "formula/value_conversion.h"

#include <QDate>

#include <cmath>

namespace sheetwright {

namespace {

// Where a slice of a date's stamp starts and how long it is.
struct StampPart {
    qsizetype position;
    qsizetype length;
};
constexpr StampPart kYear{0, 4};
constexpr StampPart kMonth{4, 2};

std::int16_t IntegerOf(const Value& value, const Conventions& conventions) {
    return ToInt16(StrictNumberOf(value, conventions));
}

bool StampPartIs(Evaluator& evaluator, QStringView arguments, StampPart part) {
    bool result = false;
    Suppressing([&] {
        const Conventions& conventions = ConventionsIn(evaluator);
        ArgumentReader reader(evaluator, arguments);
        const QString stamp = DateToStamp(QStringView(reader.NextText()), conventions);
        const std::int16_t found = IntegerOf(stamp.mid(part.position, part.length), conventions);
        result = found == IntegerOf(reader.NextOrEmpty(), conventions);
    });
    return result;
}

// A text as the locale writes dates, or a number as days since 30 December 1899, its fraction the time of
// day.
std::optional<QDate> DateOf(const Value& value, const Conventions& conventions) {
    if (std::holds_alternative<Empty>(value)) return std::nullopt;
    if (const QString* text = std::get_if<QString>(&value)) return StrictDate(*text, conventions);
    const std::int32_t days = ToInt32(std::floor(ToNumber(value, conventions)));
    const QDate date = QDate(1899, 12, 30).addDays(days);
    const bool inCalendar = date >= QDate(100, 1, 1) && date <= QDate(9999, 12, 31);
    return inCalendar ? std::optional(date) : std::nullopt;
}

// `dayOfWeek` counts from Monday, 1.
QString DayName(int dayOfWeek, const Application& application) {
    switch (dayOfWeek) {
        case 1:
            return application.Translate(QStringLiteral("Monday"));
        case 2:
            return application.Translate(QStringLiteral("Tuesday"));
        case 3:
            return application.Translate(QStringLiteral("Wednesday"));
        case 4:
            return application.Translate(QStringLiteral("Thursday"));
        case 5:
            return application.Translate(QStringLiteral("Friday"));
        case 6:
            return application.Translate(QStringLiteral("Saturday"));
        default:
            return application.Translate(QStringLiteral("Sunday"));
    }
}

}  // namespace

Value FInMonth(Evaluator& evaluator, QStringView arguments) {
    return StampPartIs(evaluator, arguments, kMonth);
}

Value FInYear(Evaluator& evaluator, QStringView arguments) {
    return StampPartIs(evaluator, arguments, kYear);
}

Value FDayOfWeek(Evaluator& evaluator, QStringView arguments) {
    std::optional<QDate> date;
    Suppressing([&] { date = DateOf(evaluator.Evaluate(arguments), ConventionsIn(evaluator)); });
    return date ? Value(DayName(date->dayOfWeek(), evaluator.Context().application)) : Value();
}

Value FToday(Evaluator& evaluator, QStringView) {
    return ShortDate(QDate::currentDate(), ConventionsIn(evaluator));
}

}  // namespace sheetwright

#include "formula/functions.h"

#include "formula/function_families.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace sheetwright {

namespace {

struct NamedFunction {
    std::u16string_view name;
    FormulaFunction function;
};

constexpr std::array kFunctions{
    NamedFunction{u"ADD", FAdd},
    NamedFunction{u"AND", FAnd},
    NamedFunction{u"AVERAGE", FAverage},
    NamedFunction{u"CONCATENATE", FConcatenate},
    NamedFunction{u"COUNTDESIGNPAGES", FCountDesignPages},
    NamedFunction{u"DAYOFWEEK", FDayOfWeek},
    NamedFunction{u"DESIGNPAGENUMBERS", FDesignPageNumbers},
    NamedFunction{u"DIVIDE", FDivide},
    NamedFunction{u"EQUAL", FEqual},
    NamedFunction{u"GREATERTHAN", FGreaterThan},
    NamedFunction{u"IF", FIf},
    NamedFunction{u"INMONTH", FInMonth},
    NamedFunction{u"INRANGE", FInRange},
    NamedFunction{u"INSTRING", FInString},
    NamedFunction{u"INTERPRET", FInterpret},
    NamedFunction{u"INYEAR", FInYear},
    NamedFunction{u"ISEMPTY", FIsEmpty},
    NamedFunction{u"LENGTH", FLength},
    NamedFunction{u"LESSTHAN", FLessThan},
    NamedFunction{u"LISTLOOKUP", FListLookup},
    NamedFunction{u"MAXIMUM", FMaximum},
    NamedFunction{u"MID", FMid},
    NamedFunction{u"MINIMUM", FMinimum},
    NamedFunction{u"MULTIPLY", FMultiply},
    NamedFunction{u"NEGATE", FNegate},
    NamedFunction{u"NOT", FNot},
    NamedFunction{u"NOTEQUAL", FNotEqual},
    NamedFunction{u"OR", FOral},
    NamedFunction{u"OVERALL", FOverall},
    NamedFunction{u"PERCENTAGE", FPercentage},
    NamedFunction{u"PERCENTAGEOF", FPercentageOf},
    NamedFunction{u"PREVIOUSVALUE", FPrevious},
    NamedFunction{u"REMAINDER", FRemainder},
    NamedFunction{u"ROUND", FRound},
    NamedFunction{u"SETME", FSetMe},
    NamedFunction{u"STRIPNONALPHA", FStripNonAlpha},
    NamedFunction{u"SUBTRACT", FSubtract},
    NamedFunction{u"SUM", FSum},
    NamedFunction{u"TODAY", FToday},
    NamedFunction{u"TRUNCATE", FTruncate},
    NamedFunction{u"VALIDATE", FValidate},
    NamedFunction{u"VALIDATIONPASSED", FValidationPassed},
    NamedFunction{u"VAR", FVar},
};

constexpr bool IsBefore(const NamedFunction& left, const NamedFunction& right) {
    return left.name < right.name;
}
static_assert(std::is_sorted(kFunctions.begin(), kFunctions.end(), IsBefore), "the search halves the table");

}  // namespace

FormulaFunction FindFunction(QStringView upperName) {
    const std::u16string_view name(upperName.utf16(), static_cast<std::size_t>(upperName.size()));
    const auto* found =
        std::lower_bound(kFunctions.begin(), kFunctions.end(), NamedFunction{name, nullptr}, IsBefore);
    return found != kFunctions.end() && found->name == name ? found->function : nullptr;
}

QStringList FunctionNames() {
    QStringList names;
    for (const NamedFunction& entry : kFunctions)
        names << QStringView(entry.name).toString();
    return names;
}

QStringList KeywordNames() {
    return {QStringLiteral("ME"), QStringLiteral("PAGECOUNT"), QStringLiteral("PAGENUMBER")};
}

}  // namespace sheetwright

#include "fields/data_source.h"

#include "core/keyed_collection.h"
#include "core/paths.h"
#include "formula/formula_scan.h"

#include <algorithm>
#include <vector>

namespace sheetwright {

namespace {

bool StandsFor(QStringView alternative, QStringView name) {
    if (IsSameSource(alternative, name)) return true;
    const qsizetype comma = name.indexOf(u',');
    return comma >= 0 && alternative.startsWith(u"*,") &&
           IsSameSource(alternative.sliced(2), name.sliced(comma + 1));
}

}  // namespace

bool IsSameSource(QStringView one, QStringView other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), [](QChar left, QChar right) {
        if (IsSeparator(left)) return IsSeparator(right);
        return CaseInsensitiveHash::Folded(left) == CaseInsensitiveHash::Folded(right);
    });
}

bool CmpDataSource(QStringView dataSource, QStringView name) {
    std::vector<QStringView> alternatives = StatementsOf(dataSource);
    if (alternatives.back().isEmpty()) alternatives.pop_back();
    return std::any_of(alternatives.begin(), alternatives.end(),
                       [name](QStringView alternative) { return StandsFor(alternative, name); });
}

}  // namespace sheetwright

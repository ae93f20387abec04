#include "fields/data_source.h"

#include "core/keyed_collection.h"
#include "core/paths.h"
#include "formula/formula_scan.h"

#include <algorithm>
#include <utility>

namespace sheetwright {

namespace {

constexpr QStringView kAnyColumn = u"*,";

std::vector<QStringView> AlternativesOf(QStringView dataSource) {
    std::vector<QStringView> alternatives = StatementsOf(dataSource);
    if (alternatives.back().isEmpty()) alternatives.pop_back();
    return alternatives;
}

// Two names have the same when they are the same source.
QString ComparedText(QStringView name) {
    QString text;
    text.reserve(name.size());
    for (const QChar character : name)
        text += IsSeparator(character) ? QChar(u'/') : QChar(CaseInsensitiveHash::Folded(character));
    return text;
}

bool StandsFor(QStringView alternative, QStringView name) {
    if (IsSameSource(alternative, name)) return true;
    const qsizetype comma = name.indexOf(u',');
    return comma >= 0 && alternative.startsWith(kAnyColumn) &&
           IsSameSource(alternative.sliced(kAnyColumn.size()), name.sliced(comma + 1));
}

}  // namespace

bool IsSameSource(QStringView one, QStringView other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), [](QChar left, QChar right) {
        if (IsSeparator(left)) return IsSeparator(right);
        return CaseInsensitiveHash::Folded(left) == CaseInsensitiveHash::Folded(right);
    });
}

bool CmpDataSource(QStringView dataSource, QStringView name) {
    const std::vector<QStringView> alternatives = AlternativesOf(dataSource);
    return std::any_of(alternatives.begin(), alternatives.end(),
                       [name](QStringView alternative) { return StandsFor(alternative, name); });
}

void DataSourceIndex::Add(QString dataSource, int number) {
    const std::size_t place = m_sources.size();
    for (const QStringView alternative : AlternativesOf(dataSource)) {
        m_whole[ComparedText(alternative)].push_back(place);
        if (alternative.startsWith(kAnyColumn))
            m_anyColumn[ComparedText(alternative.sliced(kAnyColumn.size()))].push_back(place);
    }
    m_sources.push_back({std::move(dataSource), number});
}

std::vector<int> DataSourceIndex::Find(QStringView name) const {
    std::vector<std::size_t> places;
    const auto gather = [&](const Places& from, QStringView text) {
        const auto found = from.find(ComparedText(text));
        if (found != from.end()) places.insert(places.end(), found->second.begin(), found->second.end());
    };
    gather(m_whole, name);
    if (const qsizetype comma = name.indexOf(u','); comma >= 0) gather(m_anyColumn, name.sliced(comma + 1));
    std::ranges::sort(places);
    places.erase(std::unique(places.begin(), places.end()), places.end());

    std::vector<int> numbers;
    for (const std::size_t place : places)
        if (CmpDataSource(m_sources[place].dataSource, name)) numbers.push_back(m_sources[place].number);
    return numbers;
}

}  // namespace sheetwright

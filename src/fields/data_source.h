#pragma once

// Where an import may fill a field from: alternatives of the form "column,driver folder", separated by ";".

#include <QString>
#include <QStringView>

#include <unordered_map>
#include <vector>

namespace sheetwright {

// Whether one of the alternatives of `dataSource` stands for `name`: it equals it, or it begins with "*," and
// what follows equals what stands behind the first "," of `name`. Case does not count, and "/" and "\" are
// alike. A ";" in quotes or parentheses does not separate; a quote or parenthesis that stands first in an
// alternative other than the first is not seen.
[[nodiscard]] bool CmpDataSource(QStringView dataSource, QStringView name);

// Whether two names are the same when case does not count and "/" and "\" are alike.
[[nodiscard]] bool IsSameSource(QStringView one, QStringView other);

// The data sources of many elements, so that each of many names finds its own without asking them all.
class DataSourceIndex {
  public:
    // Elements are known by their numbers, given in ascending order.
    void Add(QString dataSource, int number);

    // The elements whose data source stands for `name`, ascending.
    [[nodiscard]] std::vector<int> Find(QStringView name) const;

  private:
    struct Source {
        QString dataSource;
        int number;
    };
    // Places in `m_sources`, by the alternative as it is compared.
    using Places = std::unordered_map<QString, std::vector<std::size_t>>;

    std::vector<Source> m_sources;
    Places m_whole;
    Places m_anyColumn;  // behind "*,"
};

}  // namespace sheetwright

#pragma once

// Where the items of a page stand by name. Pages of one design have the same names in the same order, so they
// share one layout; the header, which differs from page to page, is no part of it.

#include <QHash>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace sheetwright {

class PageLines;

class PageLayout {
  public:
    explicit PageLayout(const PageLines& lines);
    PageLayout(const PageLayout&) = delete;
    PageLayout& operator=(const PageLayout&) = delete;
    ~PageLayout() = default;

    // Whether `lines` have exactly these names, in this order, behind their header.
    [[nodiscard]] bool Suits(const PageLines& lines) const;

    // Position of the first item of that name behind the header, 0 for none.
    [[nodiscard]] int First(QStringView name) const { return m_first.value(name, 0); }
    // Position of the next item with the name of the one at `position` (from 2), 0 for none.
    [[nodiscard]] int Next(int position) const { return m_next[static_cast<std::size_t>(position)]; }
    [[nodiscard]] QStringView Name(int position) const;

  private:
    QString m_names;  // one behind the other; the keys of m_first are slices of it
    std::vector<qsizetype> m_ends;
    std::vector<int> m_next;
    QHash<QStringView, int> m_first;
};

// The layouts in use by the pages of a document; it keeps none of them alive.
class PageLayoutPool {
  public:
    // The layout for these lines, made when no page in the pool has one that suits them.
    [[nodiscard]] std::shared_ptr<const PageLayout> LayoutOf(const PageLines& lines);

  private:
    void DropUnused();

    std::unordered_map<std::size_t, std::weak_ptr<const PageLayout>> m_layouts;  // by fingerprint
    std::size_t m_dropAt = 64;
};

}  // namespace sheetwright

#pragma once

// One page of a form: its text lines in order, found by position or by name. A page read from a file holds slices
// of the whole decoded text, eight bytes each; only a changed line owns its text. The name index is built once
// and shared by all pages whose items have the same names in the same order, as the pages of one design have.

#include <QString>
#include <QStringView>

#include <cstdint>
#include <memory>
#include <vector>

namespace sheetwright {

class PageLayout;
class PageLayoutPool;

class PageLines {
  public:
    [[nodiscard]] int Count() const { return static_cast<int>(m_lines.size()); }
    [[nodiscard]] bool IsEmpty() const { return m_lines.empty(); }

    // The line at `position`, from 1. Raises 9 outside the page. The view lives until the page changes.
    [[nodiscard]] QStringView Line(int position) const;

    // Position of the first item whose text before the first "=" equals `name`, case-sensitively; 0 for none.
    // An item without "=" has the name "". Line 1, the header, is an item like the others.
    [[nodiscard]] int Find(QStringView name) const;
    // The next item of the same name behind `position`; 0 for none.
    [[nodiscard]] int FindNext(QStringView name, int position) const;

    void Append(QString line);
    // Appends a slice of `text` without copying it; the page keeps `text` alive (implicitly shared). What is no
    // slice of it, or of another text than the page's first slice, is copied.
    void AppendSlice(const QString& text, QStringView slice);
    // Raise 9 outside the page; `Insert` also takes one past the end.
    void Replace(int position, QString line);
    void Insert(int position, QString line);
    void Remove(int position);
    void Clear();

    // Whether a line behind the first may begin with "BEGIN PAGE": sections of one page that were read apart.
    [[nodiscard]] bool HasInnerHeaders() const { return m_hasInnerHeaders; }

    // Gives back memory that growing took in advance.
    void ShrinkToFit();

    // Where pages of one document look for a layout that suits them.
    void ShareLayouts(std::shared_ptr<PageLayoutPool> pool) { m_pool = std::move(pool); }

  private:
    // A slice of m_text, or with length kOwned the index of a text of m_owned.
    struct LineRef {
        std::uint32_t start;
        std::uint32_t length;
    };
    static constexpr std::uint32_t kOwned = UINT32_MAX;

    [[nodiscard]] std::size_t Index(int position) const;
    [[nodiscard]] QStringView TextOf(LineRef line) const;
    [[nodiscard]] LineRef Own(QString line);
    [[nodiscard]] int Scan(QStringView name, int from) const;
    [[nodiscard]] const PageLayout* Layout() const;
    void NoteInnerHeader(int position, QStringView line);
    void Changed();

    std::vector<LineRef> m_lines;
    QString m_text;
    std::vector<QString> m_owned;
    std::shared_ptr<PageLayoutPool> m_pool;
    mutable std::shared_ptr<const PageLayout> m_layout;  // none until lookups ask for it
    mutable std::int8_t m_scans = 0;
    bool m_hasInnerHeaders = false;
};

// Layouts in use, by the names that they hold. Holds none of them alive.
class PageLayoutPool {
  public:
    // The pool's layout for these lines, made when there is none.
    [[nodiscard]] std::shared_ptr<const PageLayout> LayoutOf(const PageLines& lines);

  private:
    void Prune();

    std::vector<std::pair<std::size_t, std::weak_ptr<const PageLayout>>> m_layouts;  // sorted by fingerprint
    std::size_t m_pruneAt = 64;
};

}  // namespace sheetwright

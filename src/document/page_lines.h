#pragma once

// One page of a form: its text lines in order, found by position or by name. A page read from a file holds
// slices of the whole decoded text, eight bytes each; only a changed line owns its text.

#include <QString>
#include <QStringView>

#include <cstdint>
#include <memory>
#include <vector>

namespace sheetwright {

class PageLayout;
class PageLayoutPool;

// A plain value: copies are independent, except that they look for layouts in the same pool (one thread).
class PageLines {
  public:
    PageLines() = default;
    // Pages of one document share a pool, so that those with the same names share one index of them.
    explicit PageLines(std::shared_ptr<PageLayoutPool> pool) : m_pool(std::move(pool)) {}

    [[nodiscard]] int Count() const { return static_cast<int>(m_lines.size()); }
    [[nodiscard]] bool IsEmpty() const { return m_lines.empty(); }

    // The line at `position`, from 1. Raises 9 outside the page. The view lives until the page changes.
    [[nodiscard]] QStringView Line(int position) const { return TextOf(m_lines[Index(position)]); }

    // Position of the first item whose text before the first "=" equals `name`, case-sensitively; 0 for none.
    // An item without "=" has the name "". Line 1, the header, is an item like the others.
    [[nodiscard]] int Find(QStringView name) const { return FindNext(name, 0); }
    // The next item of the same name behind `position`; 0 for none.
    [[nodiscard]] int FindNext(QStringView name, int position) const;

    void Append(QString line);
    // Appends a slice of `text` without copying it; the page keeps `text` alive (implicitly shared). A slice
    // of another text than that of the page's first slice is copied.
    void AppendSlice(const QString& text, QStringView slice);
    // Raise 9 outside the page; `Insert` also takes one past the end.
    void Replace(int position, QString line);
    void Insert(int position, QString line);
    void Remove(int position);
    void Clear();

    // Whether a line behind the first may be a header too: a page whose parts were read apart has several.
    [[nodiscard]] bool MayHaveInnerHeaders() const { return m_mayHaveInnerHeaders; }

    // Gives back the memory that growing took in advance.
    void ShrinkToFit() { m_lines.shrink_to_fit(); }

  private:
    // A slice of m_text; or, with the length kOwned, the index of a text of m_owned.
    struct LineRef {
        std::uint32_t start;
        std::uint32_t length;
    };
    static constexpr std::uint32_t kOwned = UINT32_MAX;

    [[nodiscard]] std::size_t Index(int position) const;
    [[nodiscard]] QStringView TextOf(LineRef line) const;
    [[nodiscard]] LineRef Own(QString line);
    [[nodiscard]] bool IsSliceOfText(QStringView slice) const;
    [[nodiscard]] bool HasName(int position, QStringView name) const;
    [[nodiscard]] int Scan(QStringView name, int from) const;
    [[nodiscard]] const PageLayout* LayoutForLookup() const;
    void NoteHeader(QStringView line);
    void ForgetLayout();

    std::vector<LineRef> m_lines;
    QString m_text;
    std::vector<QString> m_owned;
    std::shared_ptr<PageLayoutPool> m_pool;
    mutable std::shared_ptr<const PageLayout> m_layout;  // none until lookups ask for it
    mutable std::int8_t m_scans = 0;
    bool m_mayHaveInnerHeaders = false;
};

// Whether a line opens a page: its first ten characters are "BEGIN PAGE".
[[nodiscard]] bool IsPageHeader(QStringView line);

// Where the page's number begins in such a line, from 0.
inline constexpr qsizetype kPageNumberAt = 11;

// Takes the next line off the front of a form's text, as it is compared and stored: without leading tabs,
// then without blanks at both ends.
[[nodiscard]] QStringView TakeFormLine(QStringView& rest);

}  // namespace sheetwright

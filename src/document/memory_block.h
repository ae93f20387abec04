#pragma once

// A form's text in memory: two arrays of pages, each an ordered collection of text lines. The lines are the
// truth; what lookups need beside them (a data page's design, the pages of a design, name to line) is kept here,
// so that no caller parses a header or scans a page twice.

#include "core/keyed_collection.h"

#include <QString>
#include <QStringView>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace sheetwright {

// The first items of a page by name, and the further items of the same name; shared by pages whose items have
// the same names in the same order.
struct PageLayout;

// One page's lines, in order. A plain value: copies are independent.
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
    // Appends a slice of `text` without copying it; the page keeps `text` alive (implicitly shared).
    void AppendSlice(const QString& text, QStringView slice);
    void Replace(int position, QString line);
    void Insert(int position, QString line);
    void Remove(int position);
    void Clear();

  private:
    std::vector<QString> m_lines;  // slices of m_text have no data of their own
    QString m_text;
    mutable std::shared_ptr<const PageLayout> m_layout;  // none until asked for
};

class MemoryBlock {
  public:
    // Upper bounds of the arrays. Pages are numbered from 1; slot 0 of the data pages is the undo snapshot.
    [[nodiscard]] std::int16_t DesignPageCount() const { return static_cast<std::int16_t>(m_designPages.size() - 1); }
    [[nodiscard]] std::int16_t DataPageCount() const { return static_cast<std::int16_t>(m_dataPages.size() - 1); }

    // A page's lines. Raise 9 outside the array.
    [[nodiscard]] const PageLines& DesignPage(int number) const;
    [[nodiscard]] const PageLines& DataPage(int number) const;

    // Titles of the design pages in reading order. They are fetched by position, the n-th added for design page n,
    // so a page without one shifts the titles of all later pages: forms rely on it.
    KeyedCollection<QString> PageProps;

    // Formulas by design page and field name. `AppendFormulas` grows the array as needed and raises 457 for a
    // second field of the same name.
    void AppendFormulas(std::int16_t design, const QString& formula, const QString& name);
    [[nodiscard]] const KeyedCollection<QString>& FormulasOf(int design) const;  // an empty one when there is none

    // Add a line to a page, creating it and all before it on first use; character 127 becomes CR LF. The second
    // form stores a slice of `text` where the line needs no change. Page numbers below 0 raise 9.
    void AppendFormDesign(std::int16_t page, QStringView line, const QString& text = QString());
    void AppendFormData(std::int16_t page, QStringView line, const QString& text = QString());

    void ReplaceDesignLine(int page, int position, QString line);
    void ReplaceDataLine(int page, int position, QString line);
    void AppendDataLine(int page, QString line);  // no decoding: real line breaks
    void ClearDataPage(int page);

    // Makes room at `position` (1 to DataPageCount + 1): later pages move up by one and their headers are
    // renumbered. The new page holds "BEGIN PAGE position DESIGN=design" and "END PAGE". Raises 6 past 32,767.
    void InsertDataPage(int position, std::int16_t design);

    // The number behind the "=" of a data page's first line. A page with no line has design 0. Raises 13 or 6
    // when that is no 16-bit number.
    [[nodiscard]] std::int16_t WhichDesign(int dataPage) const;
    [[nodiscard]] bool IsDesign(int dataPage, std::int16_t design) const { return WhichDesign(dataPage) == design; }

    // The data pages of a design, ascending; an empty list when there is none.
    [[nodiscard]] const std::vector<std::int16_t>& PagesOf(std::int16_t design) const;

  private:
    void ForgetDesigns() const { m_designs.reset(); }
    struct DesignIndex;
    const DesignIndex& Designs() const;

    std::vector<PageLines> m_designPages{1};
    std::vector<PageLines> m_dataPages{1};
    std::vector<KeyedCollection<QString>> m_formulas{1};
    mutable std::shared_ptr<const DesignIndex> m_designs;  // none until asked for
};

}  // namespace sheetwright

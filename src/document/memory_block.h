#pragma once

// A form's text in memory: two arrays of pages, each an ordered collection of text lines. The lines are the
// truth; what lookups need beside them (the pages of a design, name to line) is kept here, so that no caller
// scans the document twice.

#include "core/keyed_collection.h"
#include "document/page_lines.h"

#include <QString>
#include <QStringView>

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace sheetwright {

class MemoryBlock {
  public:
    MemoryBlock();

    // Upper bounds of the arrays. Pages are numbered from 1; slot 0 of the data pages is the undo snapshot.
    [[nodiscard]] std::int16_t DesignPageCount() const {
        return static_cast<std::int16_t>(m_designPages.size() - 1);
    }
    [[nodiscard]] std::int16_t DataPageCount() const {
        return static_cast<std::int16_t>(m_dataPages.size() - 1);
    }

    // A page's lines. Raise 9 outside the array.
    [[nodiscard]] const PageLines& DesignPage(int number) const;
    [[nodiscard]] const PageLines& DataPage(int number) const;

    // Titles of the design pages in reading order. They are fetched by position, the n-th added for design
    // page n, so a page without one shifts the titles of all later pages: forms rely on it.
    KeyedCollection<QString> PageProps;

    // Formulas by design page and field name. `AppendFormulas` grows the array as needed and raises 457 for a
    // second field of the same name. `FormulasOf` is empty for a design without any.
    void AppendFormulas(std::int16_t design, const QString& formula, const QString& name);
    [[nodiscard]] const KeyedCollection<QString>& FormulasOf(int design) const;

    // Add a line to a page, creating it and all before it on first use; character 127 becomes CR LF. The
    // line is stored as a slice of `text` where the line needs no change. Page numbers below 0 raise 9.
    void AppendFormDesign(std::int16_t page, QStringView line, const QString& text = QString());
    void AppendFormData(std::int16_t page, QStringView line, const QString& text = QString());

    // Grows with every change of a design line, and when the block takes over another's lines: what was made
    // of them before is out of date then.
    [[nodiscard]] std::uint64_t DesignRevision() const { return m_designRevision.number; }

    // These raise 9 outside the array or the page. In a data line breaks of any kind, and character 127,
    // become CR LF.
    void ReplaceDesignLine(int page, int position, QString line);
    void ReplaceDataLine(int page, int position, QString line);
    void AppendDataLine(int page, QString line);
    void ClearDataPage(int page);

    // Makes room at `position` (1 to DataPageCount + 1, else raises 9): later pages move up by one and their
    // headers are renumbered. The new page holds "BEGIN PAGE position DESIGN=design" and "END PAGE". Raises 6
    // past 32,767 pages.
    void InsertDataPage(int position, std::int16_t design);

    // Takes a page (1 to DataPageCount, else raises 9) out: later pages move down by one and the first line
    // of each gets its new number.
    void RemoveDataPage(int position);

    // The number behind the "=" of a data page's first line. A page with no line has design 0. Raises 13 or 6
    // when that is no 16-bit number.
    [[nodiscard]] std::int16_t WhichDesign(int dataPage) const;
    [[nodiscard]] bool IsDesign(int dataPage, std::int16_t design) const {
        return WhichDesign(dataPage) == design;
    }

    // The data pages of a design, ascending; an empty list when there is none.
    [[nodiscard]] const std::vector<std::int16_t>& PagesOf(std::int16_t design) const;

  private:
    // Being assigned counts as a change, too.
    struct Revision {
        std::uint64_t number = 1;

        Revision() = default;
        Revision(const Revision&) = default;
        Revision& operator=(const Revision& other) {
            number = std::max(number, other.number) + 1;
            return *this;
        }
        ~Revision() = default;
    };

    // Designs of all data pages, none where the header can't be read, and the reverse.
    struct DesignIndex {
        std::vector<std::optional<std::int16_t>> ofPage;
        std::map<std::int16_t, std::vector<std::int16_t>> pages;

        void Set(std::size_t page, std::optional<std::int16_t> design);
    };

    [[nodiscard]] const DesignIndex& Designs() const;
    [[nodiscard]] std::optional<std::int16_t> ReadableDesign(std::size_t page) const;
    void NoteHeaderChange(std::size_t page);
    [[nodiscard]] PageLines& Grown(std::vector<PageLines>& pages, std::int16_t page) const;
    void RenumberFrom(int position);

    std::shared_ptr<PageLayoutPool> m_layouts;
    std::vector<PageLines> m_designPages;
    Revision m_designRevision;
    std::vector<PageLines> m_dataPages;
    std::vector<KeyedCollection<QString>> m_formulas{1};
    mutable std::optional<DesignIndex> m_designs;  // none until asked for
};

}  // namespace sheetwright

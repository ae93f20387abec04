#include "document/memory_block.h"

#include "core/failure.h"
#include "core/text.h"
#include "document/page_layout.h"
#include "formula/value_conversion.h"

#include <algorithm>
#include <limits>

namespace sheetwright {

namespace {

constexpr int kShrinkLimit = 4096;  // lines; larger pages keep what growing took

const PageLines& Checked(const std::vector<PageLines>& pages, int number) {
    if (number < 0 || static_cast<std::size_t>(number) >= pages.size()) throw Failure(failure::kSubscript);
    return pages[static_cast<std::size_t>(number)];
}

PageLines& Checked(std::vector<PageLines>& pages, int number) {
    return const_cast<PageLines&>(Checked(std::as_const(pages), number));
}

void AppendDecoded(PageLines& page, QStringView line, const QString& text) {
    if (line.contains(QChar(127))) return page.Append(DecodeLineBreaks(line));
    if (text.isNull()) return page.Append(line.toString());
    page.AppendSlice(text, line);
}

// A changed line holds what a save and a reading would make of it: character 127 exists only in files.
QString AsRead(QString line) {
    return WithPairedLineBreaks(line.contains(QChar(127)) ? DecodeLineBreaks(line) : std::move(line));
}

// The header of a page for another number; a line without a design is no header of a data page and stays.
void RenumberLine(PageLines& page, int position, int number) {
    const QStringView line = page.Line(position);
    const qsizetype design = line.indexOf(u" DESIGN=");
    if (!IsPageHeader(line) || design < 0) return;
    QString renumbered = line.first(std::min(kPageNumberAt, line.size())).toString();
    renumbered.append(QString::number(number)).append(line.sliced(design));
    page.Replace(position, std::move(renumbered));
}

// The first line of a page for another number. What has no blank behind its number stays, and so does a page
// without lines.
void RenumberHeader(PageLines& page, int number) {
    if (page.IsEmpty()) return;
    const QStringView line = page.Line(1);
    const qsizetype blank = line.indexOf(u' ', kPageNumberAt);
    if (blank < 0) return;
    QString renumbered = line.first(kPageNumberAt).toString();
    renumbered.append(QString::number(number)).append(line.sliced(blank));
    page.Replace(1, std::move(renumbered));
}

std::int16_t DesignOf(const PageLines& page) {
    if (page.IsEmpty()) return 0;
    const QStringView text = ValueOf(page.Line(1));
    bool isPlain = false;
    const int plain = text.toInt(&isPlain);
    if (isPlain) return ToInt16(plain);
    const std::optional<double> number = StrictNumber(text, Conventions());
    if (!number) throw Failure(failure::kTypeMismatch);
    return ToInt16(*number);
}

}  // namespace

MemoryBlock::MemoryBlock()
    : m_layouts(std::make_shared<PageLayoutPool>()),
      m_designPages{PageLines(m_layouts)},
      m_dataPages{PageLines(m_layouts)} {}

const PageLines& MemoryBlock::DesignPage(int number) const {
    return Checked(m_designPages, number);
}

const PageLines& MemoryBlock::DataPage(int number) const {
    return Checked(m_dataPages, number);
}

void MemoryBlock::AppendFormulas(std::int16_t design, const QString& formula, const QString& name) {
    if (design < 0) throw Failure(failure::kSubscript);
    const auto index = static_cast<std::size_t>(design);
    if (index >= m_formulas.size()) m_formulas.resize(index + 1);
    m_formulas[index].Add(formula, name);
}

const KeyedCollection<QString>& MemoryBlock::FormulasOf(int design) const {
    static const KeyedCollection<QString> kNone;
    const auto index = static_cast<std::size_t>(design);
    return design >= 0 && index < m_formulas.size() ? m_formulas[index] : kNone;
}

PageLines& MemoryBlock::Grown(std::vector<PageLines>& pages, std::int16_t page) const {
    if (page < 0) throw Failure(failure::kSubscript);
    const auto index = static_cast<std::size_t>(page);
    if (index >= pages.size()) {
        if (pages.back().Count() <= kShrinkLimit) pages.back().ShrinkToFit();
        pages.resize(index + 1, PageLines(m_layouts));
    }
    return pages[index];
}

void MemoryBlock::AppendFormDesign(std::int16_t page, QStringView line, const QString& text) {
    AppendDecoded(Grown(m_designPages, page), line, text);
    ++m_designRevision.number;
}

void MemoryBlock::AppendFormData(std::int16_t page, QStringView line, const QString& text) {
    PageLines& lines = Grown(m_dataPages, page);
    AppendDecoded(lines, line, text);
    if (lines.Count() == 1) NoteHeaderChange(static_cast<std::size_t>(page));
}

void MemoryBlock::ReplaceDesignLine(int page, int position, QString line) {
    Checked(m_designPages, page).Replace(position, std::move(line));
    ++m_designRevision.number;
}

void MemoryBlock::ReplaceDataLine(int page, int position, QString line) {
    Checked(m_dataPages, page).Replace(position, AsRead(std::move(line)));
    if (position == 1) NoteHeaderChange(static_cast<std::size_t>(page));
}

void MemoryBlock::AppendDataLine(int page, QString line) {
    PageLines& lines = Checked(m_dataPages, page);
    lines.Append(AsRead(std::move(line)));
    if (lines.Count() == 1) NoteHeaderChange(static_cast<std::size_t>(page));
}

void MemoryBlock::ClearDataPage(int page) {
    Checked(m_dataPages, page).Clear();
    NoteHeaderChange(static_cast<std::size_t>(page));
}

void MemoryBlock::InsertDataPage(int position, std::int16_t design) {
    if (DataPageCount() == std::numeric_limits<std::int16_t>::max()) throw Failure(failure::kOverflow);
    if (position < 1 || position > DataPageCount() + 1) throw Failure(failure::kSubscript);
    PageLines page(m_layouts);
    page.Append(QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(position).arg(design));
    page.Append(QStringLiteral("END PAGE"));
    m_dataPages.insert(m_dataPages.begin() + position, std::move(page));
    if (position < DataPageCount()) {
        m_designs.reset();
        RenumberFrom(position + 1);
    } else {
        NoteHeaderChange(static_cast<std::size_t>(position));
    }
}

void MemoryBlock::RemoveDataPage(int position) {
    if (position < 1 || position > DataPageCount()) throw Failure(failure::kSubscript);
    m_dataPages.erase(m_dataPages.begin() + position);
    m_designs.reset();
    for (int number = position; number <= DataPageCount(); ++number)
        RenumberHeader(m_dataPages[static_cast<std::size_t>(number)], number);
}

void MemoryBlock::RenumberFrom(int position) {
    for (int number = position; number <= DataPageCount(); ++number) {
        PageLines& page = m_dataPages[static_cast<std::size_t>(number)];
        const int last = page.MayHaveInnerHeaders() ? page.Count() : std::min(page.Count(), 1);
        for (int line = 1; line <= last; ++line)
            RenumberLine(page, line, number);
    }
}

std::int16_t MemoryBlock::WhichDesign(int dataPage) const {
    return DesignOf(DataPage(dataPage));
}

const std::vector<std::int16_t>& MemoryBlock::PagesOf(std::int16_t design) const {
    static const std::vector<std::int16_t> kNone;
    const auto found = Designs().pages.find(design);
    return found == Designs().pages.end() ? kNone : found->second;
}

const MemoryBlock::DesignIndex& MemoryBlock::Designs() const {
    if (!m_designs) {
        m_designs.emplace();
        for (std::size_t page = 1; page < m_dataPages.size(); ++page)
            m_designs->Set(page, ReadableDesign(page));
    }
    return *m_designs;
}

std::optional<std::int16_t> MemoryBlock::ReadableDesign(std::size_t page) const {
    std::optional<std::int16_t> design;
    Ignoring([&] { design = DesignOf(m_dataPages[page]); });
    return design;
}

void MemoryBlock::NoteHeaderChange(std::size_t page) {
    if (!m_designs || page == 0) return;
    for (std::size_t hole = m_designs->ofPage.size(); hole < page; ++hole)
        if (hole != 0) m_designs->Set(hole, ReadableDesign(hole));
    m_designs->Set(page, ReadableDesign(page));
}

void MemoryBlock::DesignIndex::Set(std::size_t page, std::optional<std::int16_t> design) {
    if (page >= ofPage.size()) ofPage.resize(page + 1);
    if (ofPage[page] == design) return;
    const auto number = static_cast<std::int16_t>(page);
    const auto placeIn = [number](std::vector<std::int16_t>& list) {
        return std::lower_bound(list.begin(), list.end(), number);
    };
    if (ofPage[page]) {
        std::vector<std::int16_t>& left = pages[*ofPage[page]];
        left.erase(placeIn(left));
    }
    if (design) {
        std::vector<std::int16_t>& joined = pages[*design];
        joined.insert(placeIn(joined), number);
    }
    ofPage[page] = design;
}

}  // namespace sheetwright

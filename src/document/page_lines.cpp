#include "document/page_lines.h"

#include "core/failure.h"
#include "core/text.h"
#include "document/page_layout.h"

#include <algorithm>

namespace sheetwright {

namespace {

// A page that is asked once or twice is read through; only further lookups are worth an index.
constexpr std::int8_t kScansBeforeLayout = 2;

}  // namespace

bool IsPageHeader(QStringView line) {
    return line.startsWith(u"BEGIN PAGE");
}

QStringView TakeFormLine(QStringView& rest) {
    return TrimBlanks(StripTabs(TakeLine(rest)));
}

std::size_t PageLines::Index(int position) const {
    if (position < 1 || position > Count()) throw Failure(failure::kSubscript);
    return static_cast<std::size_t>(position - 1);
}

QStringView PageLines::TextOf(LineRef line) const {
    if (line.length == kOwned) return m_owned[line.start];
    return QStringView(m_text.constData() + line.start, static_cast<qsizetype>(line.length));
}

PageLines::LineRef PageLines::Own(QString line) {
    m_owned.push_back(std::move(line));
    return {static_cast<std::uint32_t>(m_owned.size() - 1), kOwned};
}

int PageLines::FindNext(QStringView name, int position) const {
    const int from = std::max(position, 0) + 1;
    if (from == 1 && !IsEmpty() && HasName(1, name)) return 1;
    const PageLayout* layout = LayoutForLookup();
    if (layout == nullptr) return Scan(name, std::max(from, 2));
    if (position > 1 && position <= Count() && layout->Name(position) == name) return layout->Next(position);
    int found = layout->First(name);
    while (found != 0 && found <= position)
        found = layout->Next(found);
    return found;
}

bool PageLines::HasName(int position, QStringView name) const {
    const QStringView line = Line(position);
    if (name.isEmpty()) return line.startsWith(u'=') || !line.contains(u'=');
    return line.size() > name.size() && line[name.size()] == u'=' && line.startsWith(name) &&
           !name.contains(u'=');
}

int PageLines::Scan(QStringView name, int from) const {
    for (int position = from; position <= Count(); ++position)
        if (HasName(position, name)) return position;
    return 0;
}

const PageLayout* PageLines::LayoutForLookup() const {
    if (!m_layout && m_scans < kScansBeforeLayout) {
        ++m_scans;
        return nullptr;
    }
    if (!m_layout) m_layout = m_pool ? m_pool->LayoutOf(*this) : std::make_shared<const PageLayout>(*this);
    return m_layout.get();
}

void PageLines::Append(QString line) {
    NoteHeader(line);
    ForgetLayout();
    m_lines.push_back(Own(std::move(line)));
}

void PageLines::AppendSlice(const QString& text, QStringView slice) {
    if (m_text.isNull()) m_text = text;
    if (!IsSliceOfText(slice)) return Append(slice.toString());
    NoteHeader(slice);
    ForgetLayout();
    m_lines.push_back({static_cast<std::uint32_t>(slice.begin() - QStringView(m_text).begin()),
                       static_cast<std::uint32_t>(slice.size())});
}

bool PageLines::IsSliceOfText(QStringView slice) const {
    const auto begin = reinterpret_cast<std::uintptr_t>(m_text.constData());
    const auto start = reinterpret_cast<std::uintptr_t>(slice.data());
    const auto size = static_cast<std::uintptr_t>(m_text.size()) * sizeof(QChar);
    const auto length = static_cast<std::uintptr_t>(slice.size()) * sizeof(QChar);
    const bool isInside = start >= begin && start - begin <= size && length <= size - (start - begin);
    return isInside && (start - begin) / sizeof(QChar) < kOwned && slice.size() < kOwned;
}

void PageLines::Replace(int position, QString line) {
    LineRef& place = m_lines[Index(position)];
    if (position > 1) {
        NoteHeader(line);
        if (KeyOf(line) != KeyOf(TextOf(place))) ForgetLayout();
    }
    if (place.length == kOwned) {
        m_owned[place.start] = std::move(line);
    } else {
        place = Own(std::move(line));
    }
}

void PageLines::Insert(int position, QString line) {
    if (position == Count() + 1) return Append(std::move(line));
    const auto index = static_cast<std::ptrdiff_t>(Index(position));
    m_mayHaveInnerHeaders = true;
    ForgetLayout();
    m_lines.insert(m_lines.begin() + index, Own(std::move(line)));
}

void PageLines::Remove(int position) {
    const auto index = static_cast<std::ptrdiff_t>(Index(position));
    ForgetLayout();
    m_lines.erase(m_lines.begin() + index);
}

void PageLines::Clear() {
    m_lines.clear();
    m_owned.clear();
    m_text = QString();
    m_mayHaveInnerHeaders = false;
    ForgetLayout();
}

void PageLines::NoteHeader(QStringView line) {
    if (!IsEmpty() && IsPageHeader(line)) m_mayHaveInnerHeaders = true;
}

void PageLines::ForgetLayout() {
    m_layout.reset();
    m_scans = 0;
}

}  // namespace sheetwright

#include "document/page_layout.h"

#include "core/text.h"
#include "document/page_lines.h"

#include <algorithm>

namespace sheetwright {

namespace {

constexpr int kFirstItem = 2;

std::size_t FingerprintOf(const PageLines& lines) {
    std::size_t fingerprint = static_cast<std::size_t>(lines.Count());
    for (int position = kFirstItem; position <= lines.Count(); ++position)
        fingerprint = qHash(KeyOf(lines.Line(position)), fingerprint);
    return fingerprint;
}

}  // namespace

PageLayout::PageLayout(const PageLines& lines) {
    const auto count = static_cast<std::size_t>(std::max(lines.Count(), 1));
    m_ends.reserve(count);
    m_ends.push_back(0);
    for (int position = kFirstItem; position <= lines.Count(); ++position) {
        m_names += KeyOf(lines.Line(position));
        m_ends.push_back(m_names.size());
    }
    m_next.resize(count + 1);
    for (int position = lines.Count(); position >= kFirstItem; --position) {
        int& first = m_first[Name(position)];
        m_next[static_cast<std::size_t>(position)] = first;
        first = position;
    }
}

QStringView PageLayout::Name(int position) const {
    const auto index = static_cast<std::size_t>(position - kFirstItem);
    return QStringView(m_names).sliced(m_ends[index], m_ends[index + 1] - m_ends[index]);
}

bool PageLayout::Suits(const PageLines& lines) const {
    if (static_cast<std::size_t>(std::max(lines.Count(), 1)) != m_ends.size()) return false;
    for (int position = kFirstItem; position <= lines.Count(); ++position)
        if (KeyOf(lines.Line(position)) != Name(position)) return false;
    return true;
}

std::shared_ptr<const PageLayout> PageLayoutPool::LayoutOf(const PageLines& lines) {
    const std::size_t fingerprint = FingerprintOf(lines);
    std::weak_ptr<const PageLayout>& slot = m_layouts[fingerprint];
    std::shared_ptr<const PageLayout> layout = slot.lock();
    if (layout && layout->Suits(lines)) return layout;
    layout = std::make_shared<const PageLayout>(lines);
    slot = layout;
    if (m_layouts.size() >= m_dropAt) DropUnused();
    return layout;
}

void PageLayoutPool::DropUnused() {
    std::erase_if(m_layouts, [](const auto& entry) { return entry.second.expired(); });
    m_dropAt = std::max<std::size_t>(64, m_layouts.size() * 2);
}

}  // namespace sheetwright

#include "print/design_cache.h"

#include "core/application.h"
#include "document/memory_block.h"

#include <utility>

namespace sheetwright {

DesignCache::Use::Use(DesignCache& shared, DesignCache& own) : m_cache(shared.m_isInUse ? own : shared) {
    m_cache.m_isInUse = true;
}

void DesignCache::ForgetUnlessFor(const Application& application, const MemoryBlock& memory) {
    const TruthWords words = application.TranslatedTruthWords();
    const bool holds =
        m_revision == memory.DesignRevision() && m_words == words && m_conventions == application.conventions;
    if (holds) return;
    lastDesign = nullptr;
    m_looks.clear();
    m_designs.clear();
    m_revision = memory.DesignRevision();
    m_conventions = application.conventions;
    m_words = words;
}

DesignCache::Design& DesignCache::DesignOf(const Application& application, const MemoryBlock& memory,
                                           std::int16_t number) {
    ForgetUnlessFor(application, memory);
    const auto known = m_designs.find(number);
    if (known != m_designs.end()) return known->second;
    return m_designs.emplace(number, Design(memory.DesignPage(number))).first->second;
}

const std::optional<FieldLook>& DesignCache::LookOf(const Application& application, const PropertyBag& bag,
                                                    std::uint64_t filling) {
    if (std::exchange(m_looksFilling, filling) != filling) m_looks.clear();
    const auto [known, isNew] = m_looks.try_emplace(&bag);
    if (isNew) known->second = sheetwright::LookOf(application, bag);
    return known->second;
}

}  // namespace sheetwright

#pragma once

// What printing keeps of a form's designs from page to page and from job to job, since many pages have one
// design and a preview is a job for each page: the lines cut into steps, and how each field looks.

#include "core/conventions.h"
#include "document/design_walk.h"
#include "print/element_rendering.h"

#include <cstdint>
#include <map>
#include <optional>
#include <unordered_map>

namespace sheetwright {

class Application;
class MemoryBlock;

class DesignCache {
  public:
    struct Design {
        explicit Design(const PageLines& lines) : walk(lines) {}
        DesignWalk walk;
        bool isRepeatable = false;  // a second walk would keep the same fields and check boxes
    };

    // One job at a time uses a cache: a command that comes in while a job runs may begin another one.
    class Use {
      public:
        // Uses `own` where `shared` is in use.
        Use(DesignCache& shared, DesignCache& own);
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;
        ~Use() { m_cache.m_isInUse = false; }
        DesignCache* operator->() const { return &m_cache; }

      private:
        DesignCache& m_cache;
    };

    // Forgets first what no longer holds, and with it what came from here before: a command may change the
    // designs from one page to the next. Raises 9 for a design that the form doesn't have.
    [[nodiscard]] Design& DesignOf(const Application& application, const MemoryBlock& memory,
                                   std::int16_t number);
    // How a field of the elements that were filled in as the `filling`-th looks.
    [[nodiscard]] const std::optional<FieldLook>& LookOf(const Application& application,
                                                         const PropertyBag& bag, std::uint64_t filling);

    // The design that was walked last, and what its walk filled.
    const Design* lastDesign = nullptr;
    std::uint64_t lastFilling = 0;

  private:
    void ForgetUnlessFor(const Application& application, const MemoryBlock& memory);

    std::map<std::int16_t, Design> m_designs;
    std::unordered_map<const PropertyBag*, std::optional<FieldLook>> m_looks;
    std::uint64_t m_looksFilling = 0;
    std::uint64_t m_revision = 0;
    Conventions m_conventions;
    TruthWords m_words;
    bool m_isInUse = false;
};

}  // namespace sheetwright

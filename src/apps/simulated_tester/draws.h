#pragma once

// Chance that comes out the same on every machine: whole numbers only, from an engine whose numbers are laid
// down, and none of the library's distributions, which every library draws in its own way.

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <utility>

namespace sheetwright {

class Draws {
  public:
    explicit Draws(std::uint64_t seed) : m_engine(seed) {}

    [[nodiscard]] int Between(int least, int most);  // both included
    [[nodiscard]] bool Chance(int percent) { return Between(1, 100) <= percent; }

    // A reading around `median`: mostly near it, now and then a multiple or a fraction, as readings are that
    // many small causes multiply. At most `median` times or divided by 4.
    [[nodiscard]] int Around(int median);

    template <typename Item>
    [[nodiscard]] const Item& OneOf(std::span<const Item> items) {
        return items[static_cast<std::size_t>(Between(0, static_cast<int>(items.size()) - 1))];
    }

    template <typename Item>
    void Shuffle(std::span<Item> items) {
        for (std::size_t left = items.size(); left > 1; --left) {
            const auto other = static_cast<std::size_t>(Between(0, static_cast<int>(left) - 1));
            std::swap(items[left - 1], items[other]);
        }
    }

  private:
    std::mt19937_64 m_engine;
};

}  // namespace sheetwright

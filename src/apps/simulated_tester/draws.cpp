#include "apps/simulated_tester/draws.h"

namespace sheetwright {

int Draws::Between(int least, int most) {
    const auto count = static_cast<std::uint64_t>(most - least) + 1;
    return least + static_cast<int>(m_engine() % count);
}

int Draws::Around(int median) {
    constexpr int kCauses = 5;
    std::int64_t reading = std::int64_t{median} * 1'000;
    for (int cause = 0; cause < kCauses; ++cause) {
        const int factor = 1'000 + Between(0, 319);  // 1.319 to the fifth power is 4
        const bool isMore = Between(0, 1) == 1;
        reading = isMore ? reading * factor / 1'000 : reading * 1'000 / factor;
    }
    return static_cast<int>((reading + 500) / 1'000);
}

}  // namespace sheetwright

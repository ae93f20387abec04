#pragma once

// The size of a page. With a printer installed it is the printer's sheet; without one it comes from
// "papersizes.csv", a table of PAPERSIZE, ORIENTATION, WIDTH and HEIGHT in twips.

#include <cstdint>
#include <optional>

namespace sheetwright {

class Application;

// In twips, for the current orientation and paper of the process. Without a printer and with a combination
// that the table lacks, the size of whatever record is current comes back; a size that is no number is 0.
// Raise 5 for a table without these columns and 6 for a size past 32 bits.
[[nodiscard]] std::int32_t PageWidthTwips(Application& application);
[[nodiscard]] std::int32_t PageHeightTwips(Application& application);

struct PaperExtent {
    std::int32_t width;  // twips
    std::int32_t height;
    bool operator==(const PaperExtent&) const = default;
};
// The size of a paper in the table; none for a combination that it lacks, for sizes that are not above 0 or
// past 32 bits, and in a table without the columns.
// Moves the table to that record.
[[nodiscard]] std::optional<PaperExtent> FindPaper(Application& application, std::int16_t paper,
                                                   std::int16_t orientation);

}  // namespace sheetwright

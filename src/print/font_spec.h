#pragma once

// A font as a form names it.

#include <QString>

namespace sheetwright {

struct FontSpec {
    QString family;
    double size = 8.25;  // points, may hold a fraction
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikethru = false;

    bool operator==(const FontSpec&) const = default;
};

}  // namespace sheetwright

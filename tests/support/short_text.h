#pragma once

// A short name for the texts of which tests are full.

#include <QString>

namespace sheetwright {

inline QString S(const char* text) {
    return QString::fromUtf8(text);
}

}  // namespace sheetwright

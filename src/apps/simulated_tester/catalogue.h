#pragma once

// What an engineer comes across: places, and the appliances that stand there with readings typical for them.

#include <QStringView>

#include <span>

namespace sheetwright {

struct Appliance {
    QStringView description;
    bool isClassOne;       // otherwise class II: without earth
    int earth;             // hundredths of an ohm
    int overRangePercent;  // how often the insulation is beyond the instrument's range
    int leakage;           // hundredths of a milliampere
};

struct Place {
    QStringView name;
    QChar letter;  // in front of its asset numbers
    std::span<const Appliance* const> appliances;
};

[[nodiscard]] std::span<const Place> Places();
[[nodiscard]] std::span<const QStringView> Engineers();

}  // namespace sheetwright

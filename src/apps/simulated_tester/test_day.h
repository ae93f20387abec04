#pragma once

// A day of an engineer with an appliance tester: places visited in turn, appliances tested one by one, most
// in order and about one in twenty not.

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace sheetwright {

struct TestedAppliance {
    QString location;
    QString asset;
    QString description;
    bool isClassOne = false;
    bool isDefective = false;  // to the eye
    // As the instrument shows them: ">" and "<" mark what is beyond its range.
    QString earth;       // ohms; "" for class II
    QString insulation;  // megohms
    QString leakage;     // milliamperes
};

struct TestDay {
    QString engineer;
    std::vector<TestedAppliance> appliances;
};

// The same seed and count give the same day everywhere; `count` 1 to 10,000, 0 for some forty.
[[nodiscard]] TestDay DrawTestDay(std::uint64_t seed, int count);

[[nodiscard]] QStringList TestRecordColumns();
// `date` as yyyymmdd.
[[nodiscard]] QStringList TestRecord(const QString& date, const QString& engineer,
                                     const TestedAppliance& tested);

}  // namespace sheetwright

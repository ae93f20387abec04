#include "apps/simulated_tester/readings.h"

#include <algorithm>

namespace sheetwright {

namespace {

constexpr int kFaultPercent = 5;

// Hundredths, as all readings here.
constexpr int kLeastEarth = 5;  // less is below the instrument's range
constexpr int kMostInsulation = 20'000;
constexpr int kOneDecimalFrom = 1'000;

QString Hundredths(int value) {
    return QStringLiteral("%1.%2").arg(value / 100).arg(value % 100, 2, 10, QChar(u'0'));
}

QString Megohms(int hundredths) {
    if (hundredths < kOneDecimalFrom) return Hundredths(hundredths);
    return QStringLiteral("%1.%2").arg(hundredths / 100).arg(hundredths / 10 % 10);
}

}  // namespace

Fault DrawFault(Draws& draws, const Appliance& appliance) {
    if (!draws.Chance(kFaultPercent)) return Fault::None;
    const int kind = draws.Between(1, 100);
    if (kind <= 35) return Fault::Defect;
    if (kind <= 60) return appliance.isClassOne ? Fault::HighEarth : Fault::Defect;
    return kind <= 90 ? Fault::LowInsulation : Fault::HighLeakage;
}

QString DrawEarth(Draws& draws, const Appliance& appliance, Fault fault) {
    if (!appliance.isClassOne) return {};
    if (fault == Fault::HighEarth) {
        const bool isBroken = draws.Chance(15);
        return isBroken ? QStringLiteral(">20") : Hundredths(draws.Between(35, 250));
    }
    const int reading = std::min(draws.Around(appliance.earth), 27);
    return reading < kLeastEarth ? QStringLiteral("<0.05") : Hundredths(reading);
}

QString DrawInsulation(Draws& draws, const Appliance& appliance, Fault fault) {
    if (fault == Fault::LowInsulation) return Megohms(draws.Between(5, appliance.isClassOne ? 90 : 180));
    if (draws.Chance(appliance.overRangePercent)) return QStringLiteral(">200");
    const int reading = draws.Around(8'000);
    return reading > kMostInsulation ? QStringLiteral(">200") : Megohms(reading);
}

QString DrawLeakage(Draws& draws, const Appliance& appliance, Fault fault) {
    if (fault == Fault::HighLeakage)
        return Hundredths(appliance.isClassOne ? draws.Between(85, 320) : draws.Between(30, 90));
    return Hundredths(std::clamp(draws.Around(appliance.leakage), 1, appliance.isClassOne ? 68 : 21));
}

}  // namespace sheetwright

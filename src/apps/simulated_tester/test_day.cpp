#include "apps/simulated_tester/test_day.h"

#include "apps/simulated_tester/catalogue.h"
#include "apps/simulated_tester/readings.h"

#include <algorithm>

namespace sheetwright {

namespace {

std::vector<Place> VisitedPlaces(Draws& draws, int count) {
    std::vector<Place> places(Places().begin(), Places().end());
    draws.Shuffle(std::span<Place>(places));
    const int visited = std::min(count, draws.Between(2, 4));
    places.erase(places.begin() + visited, places.end());
    return places;
}

// Roughly equal parts of what is left, and at least one for each place to come.
int ShareOf(Draws& draws, int left, int places) {
    if (places == 1) return left;
    const int share = left / places * draws.Between(60, 140) / 100;
    return std::clamp(share, 1, left - (places - 1));
}

QString AssetNumber(QChar letter, int number, int digits) {
    return QStringLiteral("%1-%2").arg(letter).arg(number, digits, 10, QChar(u'0'));
}

class Round {
  public:
    Round(Draws& draws, int count) : m_draws(draws), m_digits(count > 2'500 ? 5 : 4) {}

    // Kind after kind, several of each as they stand there.
    void Visit(const Place& place, int count, std::vector<TestedAppliance>& tested) {
        std::vector<const Appliance*> kinds(place.appliances.begin(), place.appliances.end());
        m_draws.Shuffle(std::span<const Appliance*>(kinds));
        int number = m_draws.Between(1, 9) * 100;
        for (std::size_t kind = 0; count > 0; kind = (kind + 1) % kinds.size()) {
            const int alike = std::min(count, m_draws.Between(1, 4));
            for (int item = 0; item < alike; ++item) {
                number += m_draws.Chance(80) ? 1 : m_draws.Between(2, 3);
                tested.push_back(Tested(place, *kinds[kind], AssetNumber(place.letter, number, m_digits)));
            }
            count -= alike;
        }
    }

  private:
    TestedAppliance Tested(const Place& place, const Appliance& appliance, const QString& asset) {
        const Fault fault = DrawFault(m_draws, appliance);
        TestedAppliance tested;
        tested.location = place.name.toString();
        tested.asset = asset;
        tested.description = appliance.description.toString();
        tested.isClassOne = appliance.isClassOne;
        tested.isDefective = fault == Fault::Defect;
        tested.earth = DrawEarth(m_draws, appliance, fault);
        tested.insulation = DrawInsulation(m_draws, appliance, fault);
        tested.leakage = DrawLeakage(m_draws, appliance, fault);
        return tested;
    }

    Draws& m_draws;
    int m_digits;  // so many that the numbers sort as text
};

}  // namespace

TestDay DrawTestDay(std::uint64_t seed, int count) {
    Draws draws(seed);
    const int usual = draws.Between(34, 46);
    int left = count == 0 ? usual : count;
    TestDay day;
    day.engineer = draws.OneOf(Engineers()).toString();
    const std::vector<Place> places = VisitedPlaces(draws, left);
    Round round(draws, left);
    for (std::size_t at = 0; at < places.size(); ++at) {
        const int share = ShareOf(draws, left, static_cast<int>(places.size() - at));
        round.Visit(places[at], share, day.appliances);
        left -= share;
    }
    return day;
}

QStringList TestRecordColumns() {
    return {QStringLiteral("Test Date"), QStringLiteral("Operator"),    QStringLiteral("Location"),
            QStringLiteral("Asset"),     QStringLiteral("Description"), QStringLiteral("Class"),
            QStringLiteral("Visual"),    QStringLiteral("Earth"),       QStringLiteral("Insulation"),
            QStringLiteral("Leakage")};
}

QStringList TestRecord(const QString& date, const QString& engineer, const TestedAppliance& tested) {
    return {date,
            engineer,
            tested.location,
            tested.asset,
            tested.description,
            tested.isClassOne ? QStringLiteral("I") : QStringLiteral("II"),
            tested.isDefective ? QStringLiteral("3") : QStringLiteral("1"),
            tested.earth,
            tested.insulation,
            tested.leakage};
}

}  // namespace sheetwright

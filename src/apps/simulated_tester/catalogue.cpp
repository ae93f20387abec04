#include "apps/simulated_tester/catalogue.h"

#include <array>

namespace sheetwright {

namespace {

constexpr Appliance kBandSaw{u"Band saw, bench", true, 13, 60, 30};
constexpr Appliance kGrinder{u"Bench grinder", true, 9, 85, 19};
constexpr Appliance kCentrifuge{u"Centrifuge", true, 8, 85, 36};
constexpr Appliance kCharger{u"Charger, laptop", false, 0, 97, 3};
constexpr Appliance kDeskLamp{u"Desk lamp", false, 0, 97, 1};
constexpr Appliance kLead{u"Extension lead, 4 way", true, 15, 95, 5};
constexpr Appliance kFan{u"Fume cupboard fan", true, 14, 55, 26};
constexpr Appliance kGlueGun{u"Glue gun", false, 0, 90, 2};
constexpr Appliance kHeatGun{u"Heat gun", false, 0, 75, 4};
constexpr Appliance kHotPlate{u"Hot plate, laboratory", true, 11, 20, 45};
constexpr Appliance kKettle{u"Kettle", true, 9, 75, 22};
constexpr Appliance kMicroscopeLamp{u"Microscope lamp", false, 0, 95, 1};
constexpr Appliance kMonitor{u"Monitor, 24 inch", true, 6, 95, 32};
constexpr Appliance kOscilloscope{u"Oscilloscope", true, 6, 95, 38};
constexpr Appliance kDrill{u"Pillar drill", true, 9, 75, 23};
constexpr Appliance kSupply{u"Power supply, bench", true, 7, 92, 30};
constexpr Appliance kProjector{u"Projector", true, 7, 92, 36};
constexpr Appliance kRefrigerator{u"Refrigerator", true, 15, 50, 28};
constexpr Appliance kSoldering{u"Soldering station", true, 10, 90, 12};
constexpr Appliance kVacuum{u"Vacuum cleaner", false, 0, 85, 6};
constexpr Appliance kBath{u"Water bath", true, 9, 45, 40};

constexpr std::array kWorkshop{&kDrill,   &kGrinder, &kBandSaw,   &kGlueGun,
                               &kHeatGun, &kLead,    &kSoldering, &kVacuum};
constexpr std::array kScience{&kSupply,         &kOscilloscope, &kHotPlate,     &kBath,      &kCentrifuge,
                              &kMicroscopeLamp, &kFan,          &kRefrigerator, &kProjector, &kMonitor};
constexpr std::array kOffices{&kMonitor, &kCharger, &kDeskLamp, &kKettle, &kLead, &kProjector};
constexpr std::array kKitchen{&kKettle, &kRefrigerator, &kVacuum, &kLead};
constexpr std::array kLibrary{&kMonitor, &kDeskLamp, &kCharger, &kProjector, &kLead};
constexpr std::array kElectronics{&kSoldering, &kOscilloscope, &kSupply, &kDeskLamp, &kHeatGun, &kMonitor};

constexpr std::array kPlaces{
    Place{u"Electronics laboratory", u'E', kElectronics},
    Place{u"Kitchen", u'K', kKitchen},
    Place{u"Library", u'L', kLibrary},
    Place{u"Offices", u'O', kOffices},
    Place{u"Science block", u'S', kScience},
    Place{u"Workshop", u'W', kWorkshop},
};

constexpr std::array<QStringView, 4> kEngineers{u"D. Vosper", u"J. Penhallick", u"M. Tate", u"T. Orrell"};

}  // namespace

std::span<const Place> Places() {
    return kPlaces;
}

std::span<const QStringView> Engineers() {
    return kEngineers;
}

}  // namespace sheetwright

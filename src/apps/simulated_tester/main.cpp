// A simulated appliance tester: hands over a plausible day's work of an engineer, so that a download can be
// tried without an instrument.

#include "apps/driver_program/delivered_table.h"
#include "apps/driver_program/driver_program.h"
#include "apps/simulated_tester/test_day.h"

#include <QDate>
#include <QRandomGenerator>
#include <QThread>

#include <limits>
#include <optional>

namespace sheetwright {

namespace {

constexpr std::uint64_t kMostItems = 10'000;
constexpr std::uint64_t kLongestDelay = 10'000;  // milliseconds
constexpr std::uint64_t kUsualDelay = 15;

constexpr QStringView kHelp =
    u"Writes a table of appliance tests as an instrument would deliver it.\n"
    u"\n"
    u"  --output FILE      the table to write; one that is there is replaced\n"
    u"  --seed N           which day; the same number gives the same readings everywhere.\n"
    u"                     Without it one is drawn and told.\n"
    u"  --date YYYYMMDD    the date of the tests; without it today\n"
    u"  --items N          how many appliances, 1 to 10000; without it some forty\n"
    u"  --delay MS         pause for each appliance, 0 to 10000 milliseconds; without it 15\n"
    u"  --help, --version  tell about the program";

QString DateOption(const cli::CommandLine& line) {
    const QString format = QStringLiteral("yyyyMMdd");
    const std::optional<QString> text = line.Value(u"date");
    if (!text) return QDate::currentDate().toString(format);
    if (text->size() == format.size() && QDate::fromString(*text, format).isValid()) return *text;
    throw cli::UsageError(QStringLiteral("\"%1\" is no date of the form YYYYMMDD").arg(*text));
}

std::uint64_t SeedOption(const cli::CommandLine& line) {
    const auto seed = NumberOption(line, u"seed", 0, std::numeric_limits<std::uint64_t>::max());
    return seed ? *seed : QRandomGenerator::system()->generate();
}

QString ProgressOf(const TestedAppliance& tested) {
    const QString sight =
        tested.isDefective ? QStringLiteral("defect seen") : QStringLiteral("no defect seen");
    const QString earth = tested.earth.isEmpty() ? QString() : tested.earth + QStringLiteral(" Ω, ");
    return QStringLiteral("%1 %2, %3: %4, %5%6 MΩ, %7 mA")
        .arg(tested.asset, tested.description, tested.location, sight, earth, tested.insulation,
             tested.leakage);
}

void Fetch(const cli::CommandLine& line) {
    const QString output = RequiredValue(line, u"output");
    const QString date = DateOption(line);
    const auto items = static_cast<int>(NumberOption(line, u"items", 1, kMostItems).value_or(0));
    const auto delay = NumberOption(line, u"delay", 0, kLongestDelay).value_or(kUsualDelay);
    const std::uint64_t seed = SeedOption(line);
    TellProgress(QStringLiteral("Seed %1").arg(seed));
    const TestDay day = DrawTestDay(seed, items);
    DeliveredTable table(TestRecordColumns());
    for (const TestedAppliance& tested : day.appliances) {
        QThread::msleep(static_cast<unsigned long>(delay));
        TellProgress(ProgressOf(tested));
        table.AddRecord(TestRecord(date, day.engineer, tested));
    }
    table.WriteTo(output);
    TellProgress(QStringLiteral("Records written: %1").arg(table.RecordCount()));
}

}  // namespace

}  // namespace sheetwright

int main(int argc, char** argv) {
    const sheetwright::DriverProgram program{
        u"sheetwright-simulated-tester",
        u"--output FILE [--seed N] [--date YYYYMMDD] [--items N] [--delay MS]",
        sheetwright::kHelp,
        {{u"output"}, {u"seed"}, {u"date"}, {u"items"}, {u"delay"}},
        sheetwright::Fetch};
    return sheetwright::RunDriverProgram(program, argc, argv);
}

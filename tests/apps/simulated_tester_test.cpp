// The simulated appliance tester: the same day for the same seed, and a day that could have been.

#include "apps/driver_program_test.h"
#include "core/paths.h"
#include "import/csv_table.h"
#include "import/driver_file.h"
#include "support/short_text.h"

#include <QRegularExpression>

#include <map>
#include <set>

namespace sheetwright {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr int kSeeds = 50;
const QString kShare = QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/share/");

QStringList ColumnsOf(const QString& path) {
    CsvTable table;
    table.SetFileName(path);
    QStringList names;
    for (int number = 1; number <= table.Columns().Count(); ++number)
        names << table.Columns().At(number).Name();
    return names;
}

std::map<QString, QString> ClassesOfTheList() {
    CsvTable list;
    list.SetFileName(kShare + S("lists/appliance_types.csv"));
    std::map<QString, QString> classes;
    for (; !list.AtEnd(); list.MoveNext())
        classes[list.Columns().At(S("Description")).Value()] = list.Columns().At(S("Class")).Value();
    return classes;
}

class SimulatedTester : public DriverProgramTest {
  protected:
    SimulatedTester() : DriverProgramTest(S("sheetwright-simulated-tester")) {}

    [[nodiscard]] CliResult Deliver(const QStringList& more) const {
        return Run(QStringList{S("--output"), OutputPath(), S("--delay"), S("0")} + more);
    }
    [[nodiscard]] static QStringList OnDay(int seed) {
        return {S("--seed"), QString::number(seed), S("--date"), S("20260312")};
    }
    void OpenDelivered() { m_table.SetFileName(OutputPath()); }
    [[nodiscard]] QString Value(const char* column) {
        return m_table.Columns().At(QString::fromLatin1(column)).Value();
    }

    CsvTable m_table;
};

// What the verdict of the sample form would be.
bool IsWithinLimits(bool isClassOne, const QString& earth, const QString& insulation,
                    const QString& leakage) {
    const auto number = [](const QString& reading) {
        return (reading.startsWith(u'>') || reading.startsWith(u'<') ? reading.sliced(1) : reading)
            .toDouble();
    };
    const bool isEarthed = !isClassOne || (!earth.startsWith(u'>') && number(earth) <= 0.3);
    return isEarthed && number(insulation) >= (isClassOne ? 1 : 2) &&
           number(leakage) <= (isClassOne ? 0.75 : 0.25);
}

TEST_F(SimulatedTester, TheSameSeedAndDateGiveTheSameBytes) {
    ASSERT_EQ(Deliver(OnDay(7)).status, 0);
    const QByteArray first = Output();
    const QByteArray golden =
        "Test Date,Operator,Location,Asset,Description,Class,Visual,Earth,Insulation,Leakage\r\n"
        "20260312,M. Tate,Library,L-0401,Projector,I,1,0.11,>200,0.34\r\n"
        "20260312,M. Tate,Library,L-0402,Desk lamp,II,1,,>200,0.01\r\n"
        "20260312,M. Tate,Library,L-0403,Desk lamp,II,1,,>200,0.01\r\n"
        "20260312,M. Tate,Library,L-0404,\"Extension lead, 4 way\",I,1,0.11,>200,0.07\r\n";
    EXPECT_THAT(first.toStdString(), StartsWith(golden.toStdString()));
    ASSERT_EQ(Deliver(OnDay(7)).status, 0);
    EXPECT_EQ(Output(), first);
    ASSERT_EQ(Deliver(OnDay(8)).status, 0);
    EXPECT_NE(Output(), first);
}

TEST_F(SimulatedTester, ADrawnSeedIsToldSoThatTheDayCanBeHadAgain) {
    const CliResult drawn = Deliver({S("--date"), S("20260312")});
    const QByteArray first = Output();
    const QRegularExpressionMatch seed =
        QRegularExpression(S("^Seed (\\d+)\n")).match(QString::fromStdString(drawn.out));
    ASSERT_TRUE(seed.hasMatch()) << drawn.out;
    ASSERT_EQ(Deliver({S("--seed"), seed.captured(1), S("--date"), S("20260312")}).status, 0);
    EXPECT_EQ(Output(), first);
}

TEST_F(SimulatedTester, TheColumnsAreThoseOfTheInstrumentsTable) {
    ASSERT_EQ(Deliver(OnDay(1)).status, 0);
    EXPECT_EQ(ColumnsOf(OutputPath()), ColumnsOf(kShare + S("drivers/AT310/Data/appliance_test_record.csv")));
}

TEST_F(SimulatedTester, EachApplianceIsToldAndCounted) {
    const CliResult result = Deliver(OnDay(7) + QStringList{S("--items"), S("3")});
    EXPECT_EQ(QString::fromStdString(result.out).count(u'\n'), 5) << result.out;
    EXPECT_THAT(result.out, HasSubstr("\nRecords written: 3\n"));
    EXPECT_EQ(result.err, "");
}

TEST_F(SimulatedTester, ADayIsPlausible) {
    const std::map<QString, QString> classes = ClassesOfTheList();
    int items = 0;
    int failed = 0;
    int defects = 0;
    int overRange = 0;
    for (int seed = 1; seed <= kSeeds; ++seed) {
        ASSERT_EQ(Deliver(OnDay(seed)).status, 0);
        OpenDelivered();
        EXPECT_GE(m_table.RecordCount(), 34);
        EXPECT_LE(m_table.RecordCount(), 46);
        std::set<QString> places;
        std::map<QString, QString> lastAssets;
        for (; !m_table.AtEnd(); m_table.MoveNext(), ++items) {
            const bool isClassOne = Value("Class") == u'I';
            ASSERT_TRUE(classes.contains(Value("Description"))) << Value("Description").toStdString();
            EXPECT_EQ(Value("Class"), classes.at(Value("Description")));
            EXPECT_EQ(Value("Test Date"), S("20260312"));
            EXPECT_EQ(Value("Earth").isEmpty(), !isClassOne);
            EXPECT_LT(lastAssets[Value("Location")], Value("Asset"));
            lastAssets[Value("Location")] = Value("Asset");
            places.insert(Value("Location"));
            defects += Value("Visual") == u'3' ? 1 : 0;
            overRange += Value("Insulation") == S(">200") ? 1 : 0;
            const bool isPassed =
                Value("Visual") == u'1' &&
                IsWithinLimits(isClassOne, Value("Earth"), Value("Insulation"), Value("Leakage"));
            failed += isPassed ? 0 : 1;
        }
        EXPECT_GE(places.size(), 2U);
        EXPECT_LE(places.size(), 4U);
    }
    EXPECT_GT(failed, items * 3 / 100);
    EXPECT_LT(failed, items * 7 / 100);
    EXPECT_GT(defects, 0);
    EXPECT_LT(defects, failed);
    EXPECT_GT(overRange, items / 2);
    EXPECT_LT(overRange, items);
}

TEST_F(SimulatedTester, AsManyAppliancesAsWanted) {
    for (const char* count : {"1", "2", "10000"}) {
        ASSERT_EQ(Deliver({S("--items"), QString::fromLatin1(count)}).status, 0);
        OpenDelivered();
        EXPECT_EQ(QString::number(m_table.RecordCount()), QString::fromLatin1(count));
    }
}

TEST_F(SimulatedTester, WrongUsageIsToldAndDeliversNothing) {
    const std::vector<std::pair<QStringList, std::string>> calls{
        {{}, "error: option --output is needed\n"},
        {{S("--items")}, "error: option --items needs a value\n"},
        {{S("--fast")}, "error: unknown option --fast\n"},
        {{S("--output"), OutputPath(), S("more")}, "error: too many operands: more\n"},
        {{S("--output"), OutputPath(), S("--items"), S("0")},
         "error: option --items takes a number from 1 to 10000, not \"0\"\n"},
        {{S("--output"), OutputPath(), S("--items"), S("10001")},
         "error: option --items takes a number from 1 to 10000, not \"10001\"\n"},
        {{S("--output"), OutputPath(), S("--seed"), S("18446744073709551616")},
         "error: option --seed takes a number from 0 to 18446744073709551615, not "
         "\"18446744073709551616\"\n"},
        {{S("--output"), OutputPath(), S("--date"), S("20260230")},
         "error: \"20260230\" is no date of the form YYYYMMDD\n"},
        {{S("--output"), OutputPath(), S("--delay"), S("1e3")},
         "error: option --delay takes a number from 0 to 10000, not \"1e3\"\n"},
    };
    for (const auto& [arguments, words] : calls) {
        const CliResult result = Run(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.err, words +
                                  "usage: sheetwright-simulated-tester --output FILE [--seed N] "
                                  "[--date YYYYMMDD] [--items N] [--delay MS]\n");
        EXPECT_TRUE(Delivered().isEmpty());
    }
}

TEST_F(SimulatedTester, HelpAndVersionAreTold) {
    EXPECT_THAT(Run({S("--help")}).out, StartsWith("usage: sheetwright-simulated-tester --output FILE "));
    EXPECT_EQ(Run({S("--version")}).out, "sheetwright-simulated-tester 1.0.0\n");
}

TEST_F(SimulatedTester, ATableThatCantBeWrittenIsAFailure) {
    const QString nowhere = Path(S("missing/table.csv"));
    const CliResult result = Run({S("--output"), nowhere, S("--delay"), S("0")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: " + nowhere.toStdString() + " can't be written: Path not found\n");
    const CliResult folder = Run({S("--output"), Path(S("out")), S("--delay"), S("0")});
    EXPECT_EQ(folder.status, 1);
    EXPECT_THAT(folder.err, HasSubstr("out can't be written: "));
    EXPECT_TRUE(Delivered().isEmpty());
}

TEST_F(SimulatedTester, StopsAtOnceWhenAskedAndLeavesNoFile) {
    QProcess process;
    Start(process, {S("--output"), OutputPath(), S("--items"), S("10000"), S("--delay"), S("100")});
    ASSERT_TRUE(WaitForWords(process, " mA\n"));
    process.terminate();
    ASSERT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
    EXPECT_TRUE(Delivered().isEmpty());
}

TEST_F(SimulatedTester, ADayFillsTheSampleForm) {
    ASSERT_TRUE(QDir(Path(S("."))).mkpath(S("DRIVERS/AT310/Data")));
    const QString table = Path(S("DRIVERS/AT310/Data/day.csv"));
    Write(S("DRIVERS/AT310/DRIVER.INF"), "");
    Write(S("DRIVERS/AT310/Data/day.inf"), ReadWholeFile(kShare + S("drivers/AT310/AT310.types")));
    ASSERT_EQ(Run(QStringList{S("--output"), table, S("--delay"), S("0")} + OnDay(7)).status, 0);

    const CliResult filled =
        CliTest::Run({S("fill"), kShare + S("templates/appliance_test_record.aft"), S("--import"), table,
                      S("--at-page"), S("2"), S("--save"), S("record.aff")});
    EXPECT_THAT(filled.out, StartsWith("imported 46 records, 2 pages added\n")) << filled.err;
    const std::string values = CliTest::Run({S("values"), S("record.aff"), S("--page"), S("4")}).out;
    EXPECT_THAT(values, HasSubstr("\tLocation\tWorkshop\n"));
    EXPECT_THAT(values, HasSubstr("\tDescription 12\tBand saw, bench\n"));
    EXPECT_THAT(values, HasSubstr("\tRecord Items\t46\n"));
    EXPECT_THAT(values, HasSubstr("\tRecord Failed\t2\n"));
    EXPECT_THAT(values, HasSubstr("\tRecord Open\t0\n"));
}

class ShippedDriver : public ::testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(ShippedDriver, DemandsTheColumnsThatItsSampleTableHas) {
    const QString folder = kShare + S("drivers/") + QString::fromLatin1(GetParam().first) + u'/';
    const QString sample = folder + S("Data/") + QString::fromLatin1(GetParam().second);
    const DriverFile driver = ReadDriverFile(folder);
    EXPECT_EQ(driver.columns, ColumnsOf(sample + S(".csv")));
    EXPECT_EQ(driver.minimumRecords, 1);
    EXPECT_TRUE(FileExists(driver.icon)) << driver.icon.toStdString();
    EXPECT_TRUE(FileExists(QStringLiteral(SHEETWRIGHT_BIN_DIR "/") + driver.program));
    EXPECT_EQ(ReadWholeFile(folder + driver.types), ReadWholeFile(sample + S(".inf")));
    EXPECT_TRUE(driver.arguments.contains(S("{output}")));
}

INSTANTIATE_TEST_SUITE_P(Drivers, ShippedDriver,
                         ::testing::Values(std::pair("AT310", "appliance_test_record"),
                                           std::pair("PC50", "calibration_certificate")));

}  // namespace
}  // namespace sheetwright

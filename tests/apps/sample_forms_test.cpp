// The sample forms as a user meets them: they open, the program finds no fault in them, and people could sign
// what they derive.

#include "apps/cli_test.h"
#include "import/csv_table.h"

#include <QRegularExpression>
#include <QSet>

#include <map>
#include <utility>
#include <vector>

namespace sheetwright {

namespace {

const QString kShare = QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/share/");

using Values = std::map<std::pair<int, std::string>, std::string>;  // by page and name

// What `values` prints: page, design, name and value, separated by tabs, below a heading.
Values ParseValues(const std::string& printed) {
    Values values;
    const QStringList lines = QString::fromStdString(printed).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines.mid(1)) {
        const QStringList parts = line.split(u'\t');
        if (parts.size() == 4) values[{parts[0].toInt(), parts[2].toStdString()}] = parts[3].toStdString();
    }
    return values;
}

QByteArray ReadShared(const QString& name) {
    QFile file(kShare + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

struct Change {
    int page;
    std::string name;
    std::string value;
};

}  // namespace

class SampleFormsTest : public CliTest {
  protected:
    // Lists are looked up below the current directory.
    SampleFormsTest() {
        QDir(Path(QString())).mkdir(QStringLiteral("LISTS"));
        for (const QString& name : QDir(kShare + QStringLiteral("lists")).entryList(QDir::Files))
            QFile::copy(kShare + QStringLiteral("lists/") + name, Path(QStringLiteral("LISTS/") + name));
    }

    [[nodiscard]] static QString Sample(const QString& name) {
        return kShare + QStringLiteral("samples/%1.aff").arg(name);
    }
    [[nodiscard]] static QString Template(const QString& name) {
        return kShare + QStringLiteral("templates/%1.aft").arg(name);
    }

    [[nodiscard]] Values ValuesOf(const QString& path) const {
        return ParseValues(Run({QStringLiteral("values"), path}).out);
    }

    // The values after one recalculation of the form with further options of `fill`.
    [[nodiscard]] Values Filled(const QString& form, const QStringList& options) const {
        const QString saved = Path(QStringLiteral("saved.aff"));
        const CliResult result = Run(QStringList{QStringLiteral("fill"), form} + options +
                                     QStringList{QStringLiteral("--save"), saved});
        EXPECT_EQ(result.status, 0) << result.err;
        return ValuesOf(saved);
    }

    [[nodiscard]] Values Changed(const QString& name, const std::vector<Change>& changes) const {
        QStringList options;
        for (const Change& change : changes)
            options << QStringLiteral("--set")
                    << QString::fromStdString(std::to_string(change.page) + ":" + change.name + "=" +
                                              change.value);
        return Filled(Sample(name), options);
    }
};

const QString kAppliances = QStringLiteral("appliance_test_record");
const QString kInspection = QStringLiteral("installation_inspection_report");
const QString kCalibration = QStringLiteral("calibration_certificate");

class EachSampleForm : public SampleFormsTest, public ::testing::WithParamInterface<QString> {};

TEST_P(EachSampleForm, CheckFindsNothing) {
    const CliResult result = Run({QStringLiteral("check"), Template(GetParam()), Sample(GetParam())});
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
}

TEST_P(EachSampleForm, RecalculationLeavesEveryValueAsItIs) {
    const Values before = ValuesOf(Sample(GetParam()));
    EXPECT_GT(before.size(), 100U);
    EXPECT_EQ(Filled(Sample(GetParam()), {}), before);
}

// A verdict on an empty form would be read as a result.
TEST_P(EachSampleForm, AnUnfilledTemplateGivesNoVerdict) {
    for (const auto& [place, value] : Filled(Template(GetParam()), {}))
        EXPECT_TRUE(value != "PASS" && value != "FAIL" && value != "SATISFACTORY") << place.second;
}

TEST_P(EachSampleForm, EveryImportedFieldNamesAColumnOfTheInstrumentsFile) {
    const QString text = QString::fromUtf8(ReadShared(QStringLiteral("templates/%1.aft").arg(GetParam())));
    const QRegularExpression source(QStringLiteral("DataSource=([^,;\r]+),DRIVERS\\\\([^;\r]+)"));
    QSet<QString> found;
    for (auto matches = source.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QString folder = kShare + QStringLiteral("drivers/") + match.captured(2);
        EXPECT_TRUE(QFile::exists(folder + QStringLiteral("/DRIVER.INF")));
        found << match.captured(1) + u'\n' + folder;
    }
    EXPECT_FALSE(found.isEmpty());
    for (const QString& pair : found) {
        CsvTable table;
        table.SetFileName(pair.section(u'\n', 1) + QStringLiteral("/Data/%1.csv").arg(GetParam()));
        EXPECT_EQ(table.Columns().At(pair.section(u'\n', 0, 0)).Name(), pair.section(u'\n', 0, 0));
    }
}

TEST_P(EachSampleForm, TheFileBesideTheSampleIsTheOneInTheDriversFolder) {
    const QByteArray beside = ReadShared(QStringLiteral("samples/%1.csv").arg(GetParam()));
    EXPECT_FALSE(beside.isEmpty());
    const QDir drivers(kShare + QStringLiteral("drivers"));
    bool same = false;
    for (const QString& driver : drivers.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        same |= ReadShared(QStringLiteral("drivers/%1/Data/%2.csv").arg(driver, GetParam())) == beside;
    EXPECT_TRUE(same);
}

INSTANTIATE_TEST_SUITE_P(SampleForms, EachSampleForm,
                         ::testing::Values(kAppliances, kInspection, kCalibration),
                         [](const auto& form) { return form.param.toStdString(); });

TEST_F(SampleFormsTest, ApplianceRecordTotalsItsThreeResultsPagesOnTheLast) {
    const Values values = ValuesOf(Sample(kAppliances));
    EXPECT_EQ(values.at({1, "Results On Pages"}), "2 3 4");
    EXPECT_EQ(values.at({2, "Page Items"}), "20");
    EXPECT_EQ(values.at({3, "Forward Items"}), "20");
    EXPECT_EQ(values.at({4, "Forward Items"}), "23");
    EXPECT_EQ(values.at({2, "Record Items"}), "");
    EXPECT_EQ(values.at({4, "Record Items"}), "34");
    EXPECT_EQ(values.at({4, "Record Failed"}), "4");
    EXPECT_EQ(values.at({4, "Record Open"}), "1");
    EXPECT_EQ(values.at({4, "Record Rate"}), "85.2 %");
    EXPECT_EQ(values.at({4, "Record Result"}), "FAIL");
}

TEST_F(SampleFormsTest, ApplianceRecordKeepsTheInstrumentsMarksInItsWorstReadings) {
    const Values values = ValuesOf(Sample(kAppliances));
    EXPECT_EQ(values.at({2, "Worst Insulation"}), "0.62");
    EXPECT_EQ(values.at({3, "Worst Insulation"}), ">200");
    EXPECT_EQ(values.at({2, "Verdict 5"}), "PASS");   // "<0.05" earth continuity
    EXPECT_EQ(values.at({2, "Verdict 16"}), "OPEN");  // no leakage was measured
    EXPECT_EQ(values.at({4, "Retest 1"}), "6");
}

TEST_F(SampleFormsTest, ApplianceVerdictFollowsEachReading) {
    struct Case {
        std::string name;
        std::string value;
        std::string verdict;
    };
    const std::vector<Case> cases = {
        {"Earth", "0.30", "PASS"},      {"Earth", "0.31", "FAIL"},      {"Earth", ">20", "FAIL"},
        {"Earth", "0", "PASS"},         {"Earth", "", "OPEN"},          {"Earth", "n/a", "OPEN"},
        {"Earth", "0,47", "OPEN"},      {"Earth", "-0.10", "OPEN"},     {"Earth", "0.2 k", "OPEN"},
        {"Insulation", "1.00", "PASS"}, {"Insulation", "0.99", "FAIL"}, {"Insulation", "<0.05", "FAIL"},
        {"Insulation", ">", "OPEN"},    {"Leakage", "0.75", "PASS"},    {"Leakage", "0.76", "FAIL"},
        {"Class", "II", "FAIL"},        {"Class", "III", "OPEN"},       {"Visual", "0", "OPEN"},
        {"Visual", "2", "OPEN"},        {"Visual", "3", "FAIL"},
    };
    const std::map<std::string, std::string> passing = {{"Asset", "T-1"},     {"Class", "I"},
                                                        {"Visual", "1"},      {"Earth", "0.10"},
                                                        {"Insulation", "50"}, {"Leakage", "0.30"}};
    std::vector<Change> changes;
    for (std::size_t at = 0; at < cases.size(); ++at) {
        const std::string line = std::to_string(at + 1);
        for (const auto& [name, value] : passing)
            changes.push_back({2, name + " " + line, value});
        changes.push_back({2, cases[at].name + " " + line, cases[at].value});
    }
    const Values values = Changed(kAppliances, changes);
    for (std::size_t at = 0; at < cases.size(); ++at)
        EXPECT_EQ(values.at({2, "Verdict " + std::to_string(at + 1)}), cases[at].verdict)
            << cases[at].name << " " << cases[at].value;
}

TEST_F(SampleFormsTest, AChangeOnAnEarlyPageReachesTheLastInOneRecalculation) {
    const Values values = Changed(kAppliances, {{2, "Earth 1", "0.90"}, {3, "Asset 1", ""}});
    EXPECT_EQ(values.at({4, "Record Failed"}), "5");
    EXPECT_EQ(values.at({4, "To Date Failed"}), "5");
    EXPECT_EQ(values.at({4, "Record Items"}), "33");
}

TEST_F(SampleFormsTest, APageInsertedAheadOfTheFirstDoesNotCountTwice) {
    const Values values =
        Filled(Sample(kAppliances), {QStringLiteral("--add-page"), QStringLiteral("Test Results:2:2")});
    EXPECT_EQ(values.at({2, "Page Items"}), "0");
    EXPECT_EQ(values.at({3, "Forward Items"}), "0");
    EXPECT_EQ(values.at({5, "To Date Items"}), "34");
    EXPECT_EQ(values.at({5, "Record Items"}), "34");
    EXPECT_EQ(values.at({4, "Record Items"}), "");
}

// No item fails, so that only the instrument stands between the record and a PASS.
TEST_F(SampleFormsTest, ARecordTestedWithAnInstrumentOutOfDateStaysOpen) {
    std::vector<Change> changes = {{2, "Insulation 7", "50"},
                                   {2, "Leakage 16", "0.30"},
                                   {4, "Visual 6", "1"},
                                   {4, "Insulation 7", "50"},
                                   {4, "Earth 8", "0.20"}};
    EXPECT_EQ(Changed(kAppliances, changes).at({4, "Record Result"}), "PASS");
    changes.push_back({1, "Calibration Due", "11/03/2026"});
    const Values values = Changed(kAppliances, changes);
    EXPECT_EQ(values.at({1, "Calibration Status"}), "OUT OF DATE");
    EXPECT_EQ(values.at({4, "Record Result"}), "OPEN");
}

TEST_F(SampleFormsTest, InspectionReportComparesItsSchedulesWithTheStatedAssessment) {
    const Values values = ValuesOf(Sample(kInspection));
    EXPECT_EQ(values.at({2, "Satisfactory"}), "34");
    EXPECT_EQ(values.at({2, "Not Applicable"}), "4");
    EXPECT_EQ(values.at({2, "For Observation"}), "2");
    EXPECT_EQ(values.at({2, "Outcome"}), "SATISFACTORY");
    EXPECT_EQ(values.at({1, "Inspection Day"}), "Wednesday");
    EXPECT_EQ(values.at({4, "Derived Assessment"}), "");
    EXPECT_EQ(values.at({6, "Record Items"}), "15");
    EXPECT_EQ(values.at({6, "Derived Assessment"}), "SATISFACTORY");
    EXPECT_EQ(values.at({6, "Agreement"}), "Agrees");
}

TEST_F(SampleFormsTest, ADangerousObservationMakesTheInspectionUnsatisfactory) {
    const Values values = Changed(kInspection, {{2, "Priority 1", "B"}});
    EXPECT_EQ(values.at({2, "Outcome"}), "UNSATISFACTORY");
    EXPECT_EQ(values.at({6, "Derived Assessment"}), "UNSATISFACTORY");
    EXPECT_EQ(values.at({6, "Agreement"}), "DIFFERS, see page 1");
}

TEST_F(SampleFormsTest, AnInspectionIsIncompleteWithAnItemLeftOrAnObservationUnrated) {
    EXPECT_EQ(Changed(kInspection, {{2, "Item 1.1", "0"}}).at({2, "Outcome"}), "INCOMPLETE");
    EXPECT_EQ(Changed(kInspection, {{2, "Priority 2", "D"}}).at({2, "Outcome"}), "INCOMPLETE");
    std::vector<Change> changes;
    for (const char* name : {"Observed Item", "Observation", "Priority"})
        for (const char* line : {" 1", " 2"})
            changes.push_back({2, std::string(name) + line, ""});
    EXPECT_EQ(Changed(kInspection, changes).at({2, "Outcome"}), "INCOMPLETE");
}

TEST_F(SampleFormsTest, CircuitVerdictFollowsEachReading) {
    const Values values = Changed(kInspection, {{4, "Zs 1", "0.55"},
                                                {4, "Zs 2", "0.69"},
                                                {4, "Max Zs 3", ""},
                                                {4, "RCD ms 4", "300"},
                                                {4, "RCD ms 5", ">300"},
                                                {4, "Insulation 6", "0.98"},
                                                {4, "Insulation 7", "<0.1"},
                                                {4, "Polarity 8", "0"},
                                                {4, "Polarity 9", "3"}});
    const std::vector<std::string> expected = {"PASS", "FAIL", "OPEN", "PASS", "FAIL",
                                               "FAIL", "FAIL", "OPEN", "FAIL"};
    for (std::size_t at = 0; at < expected.size(); ++at)
        EXPECT_EQ(values.at({4, "Verdict " + std::to_string(at + 1)}), expected[at]);
    EXPECT_EQ(values.at({6, "Record Failed"}), "5");
    EXPECT_EQ(values.at({6, "Record Result"}), "FAIL");
}

TEST_F(SampleFormsTest, CertificateCarriesTheWorstPointAndItsRangeForward) {
    const Values values = ValuesOf(Sample(kCalibration));
    EXPECT_EQ(values.at({2, "Error 1"}), "0.009");
    EXPECT_EQ(values.at({2, "Tolerance 1"}), "0.012");
    EXPECT_EQ(values.at({4, "Error 1"}), "-0.200");
    EXPECT_EQ(values.at({4, "Error Percent 1"}), "-1.00");
    EXPECT_EQ(values.at({2, "Error 9"}), "over");
    EXPECT_EQ(values.at({3, "Worst To Date"}), "75.0");
    EXPECT_EQ(values.at({3, "Worst Range To Date"}), "DC voltage, 20 V");
    EXPECT_EQ(values.at({4, "Worst To Date"}), "88.9");
    EXPECT_EQ(values.at({4, "Worst Range To Date"}), "Temperature, Pt100");
    EXPECT_EQ(values.at({4, "Record Result"}), "PASS");
}

TEST_F(SampleFormsTest, CalibrationVerdictFollowsEachReading) {
    // Applied: -19.5, -10, 0, 2, 5, 10, 15, 19.5, 21; tolerance 0.05 % of these and 0.003.
    const Values values = Changed(kCalibration, {{2, "Reading 1", "-19.514"},
                                                 {2, "Reading 2", "-10.008"},
                                                 {2, "Reading 3", "<0.5"},
                                                 {2, "Reading 4", "<1"},
                                                 {2, "Reading 5", "5,002"},
                                                 {2, "Reading 6", "10.008"},
                                                 {2, "Reading 7", "OL"},
                                                 {2, "Reading 8", ""},
                                                 {2, "Reading 9", ">22"}});
    const std::vector<std::string> expected = {"FAIL", "PASS", "PASS", "FAIL", "OPEN",
                                               "PASS", "OPEN", "OPEN", "FAIL"};
    for (std::size_t at = 0; at < expected.size(); ++at)
        EXPECT_EQ(values.at({2, "Verdict " + std::to_string(at + 1)}), expected[at]) << "line " << at + 1;
}

TEST_F(SampleFormsTest, ACertificateWithoutToleranceLeavesItsPointsOpen) {
    const Values values = Changed(kCalibration, {{3, "Tolerance Percent", ""}, {3, "Tolerance Fixed", ""}});
    EXPECT_EQ(values.at({3, "Verdict 2"}), "OPEN");
    EXPECT_EQ(values.at({4, "Record Result"}), "OPEN");
}

TEST_F(SampleFormsTest, ACertificateWithAStandardOutOfDateOrTheRoomTooWarmStaysOpen) {
    for (const Change& change :
         {Change{1, "Standard Due 2", "24/02/2026"}, Change{1, "Temperature End", "25.1"}}) {
        const Values values = Changed(kCalibration, {change});
        EXPECT_EQ(values.at({1, "Conditions"}), "NOT IN ORDER") << change.name;
        EXPECT_EQ(values.at({4, "Record Result"}), "OPEN") << change.name;
    }
}

TEST_F(SampleFormsTest, PresetLimitsStandUntilTheUserSetsOthers) {
    EXPECT_EQ(Filled(Template(kAppliances), {}).at({1, "Earth Limit"}), "0.30");
    const Values values = Changed(kAppliances, {{1, "Earth Limit", "0.05"}});
    EXPECT_EQ(values.at({1, "Earth Limit"}), "0.05");
    EXPECT_EQ(values.at({2, "Verdict 1"}), "FAIL");
    EXPECT_EQ(values.at({2, "Verdict 4"}), "PASS");
}

}  // namespace sheetwright

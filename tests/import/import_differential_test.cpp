// Thousands of forms and tables, drawn at random, are imported twice: by the program and by a model that
// shares no code with it. Set SHEETWRIGHT_IMPORT_SEED to see one case alone.

#include "core/failure.h"
#include "core/folders.h"
#include "fields/usr_entry.h"
#include "import/import_case.h"
#include "import/import_fixture.h"

#include <QDir>
#include <QFile>

namespace sheetwright {
namespace {

constexpr int kMostPagesAdded = 60;
#ifdef __SANITIZE_ADDRESS__
constexpr std::uint32_t kShare = 5;  // a part of the cases, since each takes several times as long
#else
constexpr std::uint32_t kShare = 1;
#endif

QString Description(const ModelOutcome& outcome) {
    QStringList lines;
    int number = 0;
    for (const ModelPage& page : outcome.pages) {
        QStringList values;
        for (const auto& [name, value] : page.values)
            values << name + u'=' + value;
        lines << S("page %1 of design %2: ").arg(++number).arg(page.design) + values.join(u'|');
    }
    if (outcome.failure) return (lines << S("failure %1").arg(*outcome.failure)).join(u'\n');
    QStringList states;
    for (const int state : outcome.states)
        states << QString::number(state);
    lines << S("on screen page %1 of design %2: ").arg(outcome.pageOnScreen).arg(outcome.designOnScreen) +
                 outcome.texts.join(u'|') + S(" checks ") + states.join(u'|')
          << S("%1 columns, %2 records, %3 pages added")
                 .arg(outcome.columns)
                 .arg(outcome.records)
                 .arg(outcome.pagesAdded)
          << S("%1 runs, %2 without a key level").arg(outcome.runs).arg(outcome.runsWithoutKeyLevel);
    return lines.join(u'\n');
}

// Where the table lies, below the test's folder.
struct Place {
    const char* marked;  // the folder with the marker; "" for none
    const char* table;
};
constexpr Place kPlaces[] = {{"DRIVERS/meter", "DRIVERS/meter/Data/table.csv"},
                             {"DRIVERS/meter", "DRIVERS/meter/table.csv"},
                             {"lab/Drivers/old one", "lab/Drivers/old one/Data/2001/table.csv"},
                             {"plain", "plain/Data/table.csv"},
                             {"", "unmarked/Data/table.csv"}};

class ImportAgainstModel : public ImportTest {
  protected:
    ImportAgainstModel() {
        SetListFolder(*m_application, m_folder.path());
        Write(S("LISTS/town.csv"), CsvOf(TownList()));
    }

    void Compare(const CaseKind& kind, std::uint32_t first, std::uint32_t count) {
        const QStringList asked = qEnvironmentVariable("SHEETWRIGHT_IMPORT_SEED").split(u'-');
        const std::uint32_t begin = asked.first().isEmpty() ? first : asked.first().toUInt();
        const std::uint32_t end =
            asked.first().isEmpty() ? first + count / kShare : asked.last().toUInt() + 1;
        for (std::uint32_t seed = begin; seed < end && !HasFatalFailure(); ++seed)
            CompareOne(kind, seed);
        EXPECT_LE(m_endless, static_cast<int>((end - begin) / 4) + 1) << "too many cases that say little";
    }

  private:
    void CompareOne(const CaseKind& kind, std::uint32_t seed) {
        const Place& place = kPlaces[seed % 8 < 4 ? 0 : seed % 8 - 3];
        const QString path = Path(QString::fromLatin1(place.table));
        QStringList marked;
        if (*place.marked != '\0') {
            Write(QString::fromLatin1(place.marked) + S("/DRIVER.INF"), "");
            marked << Backslashed(Path(QString::fromLatin1(place.marked)));
        }
        const QString folder = ModelRelativePath(Backslashed(path), marked);
        const ImportCase drawn = DrawnCase(kind, folder, seed);
        const ModelOutcome expected =
            ImportModel(drawn.form, drawn.page, kMostPagesAdded).Import(drawn.table, folder);
        const QString shown = Show(drawn, QString::fromLatin1(place.table));
        if (expected.isEndless) return Stop(drawn, shown, seed);
        const QString actual = Description(Outcome(shown)) + Troubles();
        ASSERT_EQ(actual.toStdString(), Description(expected).toStdString()) << Told(drawn, path, seed);
    }

    [[nodiscard]] static QString Backslashed(QString path) { return path.replace(u'/', u'\\'); }

    // The path of the table.
    QString Show(const ImportCase& drawn, const QString& name) {
        const QString path = Write(name, CsvOf(drawn.table));
        QFile::remove(path.chopped(3) + S("inf"));
        if (const QByteArray inf = InfOf(drawn.table); !inf.isEmpty()) Write(name.chopped(3) + S("inf"), inf);
        FormText form = TextOf(drawn.form);
        QDir(Path(S("temporary"))).removeRecursively();
        Read(form);
        Forget();
        m_document->DataPageNum = static_cast<std::int16_t>(drawn.page);
        LoadPage(*m_document);
        if (drawn.form.hasLinks) Write(S("temporary/linkedpages.txt"), LinksOf(drawn.form));
        return path;
    }
    // The form is then as it was.
    void Stop(const ImportCase& drawn, const QString& path, std::uint32_t seed) {
        constexpr int kQuestions = 25;
        ++m_endless;
        int questions = 0;
        m_ui.onStopQuestion = [&questions] { return ++questions == kQuestions; };
        const std::string before = Description(State()).toStdString();
        const bool isStopped = Import(*m_document, path).isStopped;
        m_ui.onStopQuestion = nullptr;
        ASSERT_TRUE(isStopped) << Told(drawn, path, seed);
        ASSERT_EQ(Description(State()).toStdString(), before) << Told(drawn, path, seed);
        TakenLogRows({});
        m_otherRows.clear();
    }

    ModelOutcome Outcome(const QString& path) {
        ModelOutcome outcome;
        const int pages = m_document->Pages;
        try {
            const ImportResult result = Import(*m_document, path);
            outcome.columns = result.columns;
            outcome.records = static_cast<int>(result.records);
            outcome.pagesAdded = m_document->Pages - pages;
            if (result.pagesAdded != outcome.pagesAdded) ADD_FAILURE() << "pages were miscounted";
        } catch (const Failure& failure) {
            outcome.failure = failure.Number();
        }
        outcome = State(outcome);
        outcome.runsWithoutKeyLevel = TakenLogRows(S("Import - Missing KeyLevels"));
        return outcome;
    }
    // What the form holds, on screen and off it.
    ModelOutcome State(ModelOutcome outcome = {}) const {
        for (int page = 1; page <= m_document->memory.DataPageCount(); ++page)
            outcome.pages.push_back(StoredPage(page));
        outcome.pageOnScreen = m_document->DataPageNum;
        outcome.designOnScreen = m_document->PageNum;
        outcome.texts = Texts();
        for (int check = 1; check <= ThePage().Checks.Count(); ++check)
            outcome.states.push_back(Check(check).Value().toInt());
        outcome.runs =
            static_cast<int>(QDir(m_document->MyTempDir).entryList({S("import*.csv")}, QDir::Files).size());
        return outcome;
    }
    [[nodiscard]] ModelPage StoredPage(int number) const {
        ModelPage page{m_document->memory.WhichDesign(number), {}};
        for (const QString& line : Lines(number))
            if (!line.startsWith(u"BEGIN PAGE") && line != u"END PAGE")
                page.values.emplace_back(line.section(u'=', 0, 0), line.section(u'=', 1));
        return page;
    }
    // Rows of the error log that are this error; the log is empty afterwards.
    int TakenLogRows(const QString& error) {
        if (!QFile::exists(Path(S("errors.csv")))) return 0;
        int count = 0;
        for (const QStringList& row : ErrorRows()) {
            if (row.contains(error))
                ++count;
            else
                m_otherRows << row.join(u',');
        }
        QFile::remove(Path(S("errors.csv")));
        return count;
    }
    // What no import does.
    QString Troubles() {
        QString troubles;
        for (const QString& text : m_ui.MessageTexts() + std::exchange(m_otherRows, {}))
            troubles += S("\nand told: ") + text;
        m_ui.messages.clear();
        return troubles;
    }

    // The form without the keys that are the same in all records.
    static QString Shortened(const ModelForm& form) {
        QStringList dull;
        for (const QString& line : FormText().Page({}).Field({}).CheckBox({}).Text().split(S("\r\n")))
            if (line.contains(u'=')) dull << line;
        QStringList lines = TextOf(form).Text().split(S("\r\n"));
        lines.removeIf([&](const QString& line) {
            return dull.contains(line) || line.startsWith(u"TabIdx") || line.startsWith(u"END");
        });
        return lines.join(u'\n');
    }
    static std::string Told(const ImportCase& drawn, const QString& path, std::uint32_t seed) {
        return "seed " + std::to_string(seed) + ", page " + std::to_string(drawn.page) + " of\n" +
               Shortened(drawn.form).toStdString() + "\nlinkedpages.txt:\n" +
               LinksOf(drawn.form).toStdString() + path.toStdString() + ":\n" +
               CsvOf(drawn.table).toStdString() + InfOf(drawn.table).toStdString();
    }

    int m_endless = 0;
    QStringList m_otherRows;
};

TEST_F(ImportAgainstModel, OneRecordOnEachPage) {
    Compare({.pageTriggers = 25, .keyLevels = 25, .mostPages = 2}, 1, 800);
}

TEST_F(ImportAgainstModel, Lines) {
    Compare({.mostLines = 4, .lineTriggers = 35, .keyLevels = 15, .mostPages = 2}, 10001, 800);
}

TEST_F(ImportAgainstModel, LinesAndPages) {
    Compare({.mostLines = 4, .pageTriggers = 10, .lineTriggers = 30, .keyLevels = 20, .mostPages = 3}, 20001,
            1000);
}

TEST_F(ImportAgainstModel, CheckBoxes) {
    Compare({.mostLines = 3,
             .pageTriggers = 12,
             .lineTriggers = 25,
             .keyLevels = 20,
             .mostChecks = 3,
             .types = 20,
             .mostPages = 2},
            30001, 600);
}

TEST_F(ImportAgainstModel, Types) {
    Compare({.mostLines = 2, .pageTriggers = 15, .lineTriggers = 25, .keyLevels = 40, .types = 90}, 40001,
            600);
}

TEST_F(ImportAgainstModel, SeveralDesigns) {
    Compare({.mostLines = 3,
             .pageTriggers = 15,
             .lineTriggers = 25,
             .keyLevels = 20,
             .mostChecks = 2,
             .formulas = 10,
             .mostDesigns = 3,
             .mostPages = 3},
            50001, 500);
}

TEST_F(ImportAgainstModel, LinkedPages) {
    Compare({.mostLines = 3,
             .pageTriggers = 15,
             .lineTriggers = 25,
             .keyLevels = 20,
             .mostChecks = 1,
             .links = 100,
             .mostDesigns = 3,
             .mostPages = 3},
            60001, 600);
}

TEST_F(ImportAgainstModel, OddSourcesAndNames) {
    Compare({.mostLines = 2,
             .pageTriggers = 8,
             .lineTriggers = 20,
             .keyLevels = 20,
             .oddSources = 40,
             .equalNames = 10},
            70001, 600);
}

TEST_F(ImportAgainstModel, ListsInUse) {
    Compare({.mostLines = 3, .pageTriggers = 8, .lineTriggers = 25, .keyLevels = 15, .lists = 30}, 80001,
            400);
}

}  // namespace
}  // namespace sheetwright

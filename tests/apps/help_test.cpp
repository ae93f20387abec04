// The help for users: its links lead somewhere, it knows every function, and what its examples say is true.

#include "core/folders.h"
#include "core/paths.h"
#include "formula/display_mask.h"
#include "formula/formula_test_base.h"
#include "formula/functions.h"
#include "support/page_of_elements.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

#include <algorithm>
#include <map>
#include <vector>

namespace sheetwright {
namespace {

// What an element of the help says about the program in its attributes and in its text.
struct Claim {
    QXmlStreamAttributes attributes;
    QString text;

    [[nodiscard]] QString Of(QLatin1StringView attribute) const {
        return attributes.value(attribute).toString();
    }
    [[nodiscard]] std::string Name() const { return text.toStdString(); }
};

constexpr QLatin1String kExpression("data-expression");
constexpr QLatin1String kFailure("data-failure");
constexpr QLatin1String kMask("data-mask");
constexpr QLatin1String kResult("data-result");
constexpr QLatin1String kTyped("data-typed");
constexpr QLatin1String kValue("data-value");

struct HelpPage {
    QString title;
    QString heading;
    QString keywords;
    QString text;
    QStringList ids;
    QStringList targets;  // of links
    std::vector<Claim> claims;
    QString error;  // of its syntax
};

class HelpReader {
  public:
    explicit HelpReader(const QByteArray& bytes) : m_reader(bytes) {}

    HelpPage Read() {
        while (!m_reader.atEnd())
            Take(m_reader.readNext());
        if (m_reader.hasError())
            m_page.error = m_reader.errorString() + u' ' + QString::number(m_reader.lineNumber());
        return m_page;
    }

  private:
    void Take(QXmlStreamReader::TokenType token) {
        if (token == QXmlStreamReader::StartElement) Start();
        if (token == QXmlStreamReader::Characters) AddText();
        if (token == QXmlStreamReader::EndElement) m_open.removeLast();
    }

    void Start() {
        const QString name = m_reader.name().toString();
        const QXmlStreamAttributes attributes = m_reader.attributes();
        m_open << name;
        if (attributes.hasAttribute(QLatin1String("id")))
            m_page.ids << attributes.value(QLatin1String("id")).toString();
        if (attributes.hasAttribute(QLatin1String("href")))
            m_page.targets << attributes.value(QLatin1String("href")).toString();
        if (attributes.value(QLatin1String("name")) == u"keywords")
            m_page.keywords = attributes.value(QLatin1String("content")).toString();
        if (name == u"pre" || name == u"code" || name == u"tr") m_page.claims.push_back({attributes, {}});
    }

    void AddText() {
        const QString text = m_reader.text().toString();
        if (m_open.contains(QStringLiteral("title"))) m_page.title += text;
        if (m_open.contains(QStringLiteral("h1"))) m_page.heading += text;
        m_page.text += text + u' ';
        const bool isClaimed = std::any_of(m_open.begin(), m_open.end(), [](const QString& name) {
            return name == u"pre" || name == u"code" || name == u"td";
        });
        if (isClaimed) m_page.claims.back().text += text;
    }

    QXmlStreamReader m_reader;
    HelpPage m_page;
    QStringList m_open;
};

QString HelpFolder() {
    return QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/share/help/");
}

using HelpPages = std::map<QString, HelpPage>;  // by file name

const HelpPages& Pages() {
    static const HelpPages pages = [] {
        HelpPages read;
        for (const QString& name : QDir(HelpFolder()).entryList({QStringLiteral("*.html")}, QDir::Files))
            read[name] = HelpReader(ReadWholeFile(HelpFolder() + name)).Read();
        return read;
    }();
    return pages;
}

const HelpPage& PageOf(const char* name) {
    return Pages().at(QString::fromLatin1(name));
}

std::vector<Claim> Claims(QLatin1StringView attribute) {
    std::vector<Claim> claims;
    for (const auto& [name, page] : Pages())
        std::copy_if(page.claims.begin(), page.claims.end(), std::back_inserter(claims),
                     [attribute](const Claim& claim) { return claim.attributes.hasAttribute(attribute); });
    return claims;
}

// The file that a link in `page` leads to; the place in it stands behind "#".
QString FileOf(const QString& page, const QString& target) {
    const QString file = target.section(u'#', 0, 0);
    return file.isEmpty() ? page : file;
}

TEST(Help, EveryPageIsWellFormed) {
    ASSERT_GE(Pages().size(), 15U);
    for (const auto& [name, page] : Pages())
        EXPECT_EQ(page.error, QString()) << name.toStdString();
}

TEST(Help, EveryPageHasATitleKeywordsAndUniquePlaces) {
    for (const auto& [name, page] : Pages()) {
        EXPECT_FALSE(page.title.isEmpty()) << name.toStdString();
        EXPECT_EQ(page.title, page.heading) << name.toStdString();
        EXPECT_FALSE(page.keywords.isEmpty()) << name.toStdString();
        EXPECT_EQ(QSet<QString>(page.ids.begin(), page.ids.end()).size(), page.ids.size())
            << name.toStdString();
    }
}

TEST(Help, EveryLinkLeadsSomewhere) {
    for (const auto& [name, page] : Pages()) {
        for (const QString& target : page.targets) {
            const QString file = FileOf(name, target);
            const QString place = target.section(u'#', 1);
            EXPECT_TRUE(QFile::exists(HelpFolder() + file))
                << name.toStdString() << " " << target.toStdString();
            EXPECT_TRUE(place.isEmpty() || Pages().at(file).ids.contains(place))
                << name.toStdString() << " " << target.toStdString();
        }
    }
}

TEST(Help, EveryPageIsReachedFromTheContents) {
    QStringList found{QStringLiteral("index.html")};
    for (qsizetype at = 0; at < found.size(); ++at) {
        const QString name = found[at];
        for (const QString& target : Pages().at(name).targets) {
            const QString file = FileOf(name, target);
            if (Pages().contains(file) && !found.contains(file)) found << file;
        }
    }
    EXPECT_EQ(static_cast<std::size_t>(found.size()), Pages().size());
}

TEST(Help, NothingIsLeftToBeWritten) {
    static const QRegularExpression kUnfinished(
        QStringLiteral("\\b(spec|specs|specification|todo|tbd|fixme|lorem)\\b"),
        QRegularExpression::CaseInsensitiveOption);
    for (const auto& [name, page] : Pages())
        EXPECT_FALSE(page.text.contains(kUnfinished)) << name.toStdString();
}

TEST(Help, EveryFunctionAndKeywordHasAnEntryWithAnExample) {
    const HelpPage& page = PageOf("functions.html");
    QString shown;
    for (const Claim& claim : page.claims)
        shown += claim.Of(kExpression) + u' ';
    for (const QString& name : FunctionNames()) {
        EXPECT_TRUE(page.ids.contains(name)) << name.toStdString();
        EXPECT_TRUE(shown.contains(name + u'(')) << name.toStdString();
    }
    for (const QString& name : KeywordNames()) {
        EXPECT_TRUE(page.ids.contains(name)) << name.toStdString();
        EXPECT_TRUE(shown.contains(name)) << name.toStdString();
    }
}

TEST(Help, EveryEntryIsAFunctionOrKeyword) {
    static const QRegularExpression kCapitals(QStringLiteral("^[A-Z]+$"));
    for (const QString& id : PageOf("functions.html").ids.filter(kCapitals))
        EXPECT_TRUE(FunctionNames().contains(id) || KeywordNames().contains(id)) << id.toStdString();
}

TEST(Help, EveryFailureNumberHasTheTextOfTheProgram) {
    static const QRegularExpression kRow(QStringLiteral("^(\\d+)([A-Z].*)$"));
    int rows = 0;
    for (const Claim& claim : PageOf("messages.html").claims) {
        if (claim.Of(QLatin1String("class")) != u"failure") continue;
        const QRegularExpressionMatch row = kRow.match(claim.text);
        ASSERT_TRUE(row.hasMatch()) << claim.Name();
        EXPECT_TRUE(row.captured(2).startsWith(FailureText(row.captured(1).toInt()))) << claim.Name();
        ++rows;
    }
    EXPECT_GE(rows, 15);
}

TEST(Help, EveryMaskShowsWhatItsExampleSays) {
    const Conventions conventions = ConventionsOf(QLocale::c());
    ASSERT_FALSE(Claims(kMask).empty());
    for (const Claim& claim : Claims(kMask)) {
        EXPECT_EQ(FormatValue(claim.Of(kValue), claim.Of(kMask), conventions), claim.Of(kResult))
            << claim.Of(kMask).toStdString();
    }
}

using HelpDateTest = PageOfElements;

TEST_F(HelpDateTest, EveryWayToTypeADateGivesWhatTheHelpSays) {
    m_application->conventions = ConventionsOf(QLocale::c());
    AddDate(S("1/1/1980"));
    ASSERT_FALSE(Claims(kTyped).empty());
    for (const Claim& claim : Claims(kTyped))
        EXPECT_EQ(Type(1, claim.Of(kTyped)), claim.Of(kResult)) << claim.Of(kTyped).toStdString();
}

// The form that the help describes for its examples.
class HelpExampleTest : public FormulaTest {
  protected:
    HelpExampleTest() {
        UseLocale(QLocale::c());
        MakePages();
        MakeFiles();
        m_dataPageNum = 3;
        m_mePage = 3;
    }

    void MakePages() {
        AddDesign(QStringLiteral("Cover"));
        AddDesign(QStringLiteral("Result"));
        AddDesign(QStringLiteral("Summary"));
        AddPage(1, {QStringLiteral("Client=Marlow Ltd"), QStringLiteral("Date=31/12/1999"),
                    QStringLiteral("Remark=")});
        AddPage(2, {QStringLiteral("Reading=10")});
        AddPage(2, {QStringLiteral("Reading=20.5")});
        AddPage(3, {QStringLiteral("Total=")});
    }

    void MakeFiles() {
        SetListFolder(*m_application, m_folder.path());
        Write(QStringLiteral("meter.inf"), "[Tested]\r\nDataType=DATE\r\n");
        m_import.SetFileName(Write(QStringLiteral("meter.csv"), "Asset,Tested\r\nA-17,19991231\r\n"));
        m_driver = &m_import;
        m_stock.SetFileName(Write(QStringLiteral("Lists/stock.csv"), "Code,Name\r\nA1,Bolt\r\nA2,Nut\r\n"));
        m_stock.SetPosition(2);
        m_list = &m_stock;
        Write(QStringLiteral("work/FormVars.txt"), "site=North\r\n");
        Write(QStringLiteral("work/Validation.Status"), "passed\r\n");
    }

    // The line that the page shows for an expression.
    QString Line(const QString& expression) {
        m_me = QStringLiteral("5");
        EvaluationContext context = Context();
        QString result;
        const auto failed = FailureOf([&] {
            const Value value = Evaluator(context).Evaluate(QStringView(expression));
            result = TextOf(value, m_application->conventions);
        });
        if (failed) return QStringLiteral("%1  fails with number %2").arg(expression).arg(*failed);
        return expression + QStringLiteral("  gives  ") +
               (result.isEmpty() ? QStringLiteral("(blank)") : result);
    }

    CsvTable m_import;
    CsvTable m_stock;
};

TEST_F(HelpExampleTest, EveryExampleGivesWhatThePageShows) {
    ASSERT_GE(Claims(kExpression).size(), 80U);
    for (const Claim& claim : Claims(kExpression))
        EXPECT_EQ(Line(claim.Of(kExpression)), claim.text);
}

TEST_F(HelpExampleTest, EveryExampleTellsToolsWhatItTellsPeople) {
    for (const Claim& claim : Claims(kExpression)) {
        const QString told = claim.attributes.hasAttribute(kFailure)
                                 ? QStringLiteral("  fails with number ") + claim.Of(kFailure)
                                 : QStringLiteral("  gives  ") + claim.Of(kResult);
        const bool isBlank = claim.attributes.hasAttribute(kResult) && claim.Of(kResult).isEmpty();
        EXPECT_EQ(claim.Of(kExpression) + told + (isBlank ? QStringLiteral("(blank)") : QString()),
                  claim.text);
    }
}

}  // namespace
}  // namespace sheetwright

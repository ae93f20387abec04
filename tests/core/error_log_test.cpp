#include "core/error_log.h"

#include "support/test_application.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QRegularExpression>

#include <sys/file.h>

namespace sheetwright {

namespace {

class ErrorLog : public ApplicationTest {
  protected:
    void SetUp() override { m_application->conventions = ConventionsOf(QLocale(QStringLiteral("en_GB"))); }
    void Log(const QString& sub, const QString& additional, int number) const {
        LogError(*m_application, sub, additional, number);
    }
    [[nodiscard]] QByteArray File() const { return Read(QStringLiteral("errors.csv")); }
};

const QByteArray kHeader = "Date,Time,Application,Sub,Error,Additional\r\n";
const QByteArray kUtf8Mark = "\xEF\xBB\xBF";

TEST_F(ErrorLog, FirstErrorCreatesTheFileWithItsHeader) {
    Log(QStringLiteral("ZipForm"), QStringLiteral("a.aff"), 76);
    EXPECT_TRUE(File().startsWith(kHeader)) << File().toStdString();
    EXPECT_EQ(ErrorRows().size(), 1U);
}

TEST_F(ErrorLog, RowHoldsTheSixColumns) {
    const QDate before = QDate::currentDate();
    Log(QStringLiteral("LoadPage"), QStringLiteral("form.aff"), 13);
    const QStringList row = ErrorRows().at(0);
    ASSERT_EQ(row.size(), 6);
    const QStringList days{before.toString(QStringLiteral("dd/MM/yyyy")),
                           QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy"))};
    EXPECT_TRUE(days.contains(row[0])) << row[0].toStdString();
    EXPECT_TRUE(
        QRegularExpression(QStringLiteral("^[0-2][0-9]:[0-5][0-9]:[0-5][0-9]$")).match(row[1]).hasMatch());
    EXPECT_EQ(row[2], QStringLiteral("Tolvane Quillon Sheetwright"));
    EXPECT_EQ(row[3], QStringLiteral("LoadPage"));
    EXPECT_EQ(row[4], QStringLiteral("13: Type mismatch"));
    EXPECT_EQ(row[5], QStringLiteral("form.aff"));
}

TEST_F(ErrorLog, RowHoldsTheTranslatedTitle) {
    Write(QStringLiteral("Sheetwright.DIC"),
          "ENGLISH,TRANSLATION\r\nTolvane Quillon Sheetwright,Formularwerk\r\n");
    m_application->LoadLanguage();
    Log(QStringLiteral("LoadPage"), QString(), 13);
    EXPECT_EQ(ErrorRows().at(0).at(2), QStringLiteral("Formularwerk"));
}

TEST_F(ErrorLog, NumberThatNoTableHasIsLoggedToo) {
    Log(QStringLiteral("Import"), QString(), -2147483647);
    EXPECT_EQ(ErrorRows().at(0).at(4), QStringLiteral("-2147483647: Application-defined error"));
}

TEST_F(ErrorLog, LiesInTheLogFolderWhereverTemporaryFilesGo) {
    m_application->WritableFolder = Path(QStringLiteral("elsewhere/"));
    Log(QStringLiteral("LoadPage"), QString(), 13);
    EXPECT_TRUE(File().startsWith(kHeader));
}

TEST_F(ErrorLog, TwoErrorsWithinASecondGiveTwoRows) {
    Log(QStringLiteral("Import"), QStringLiteral("same"), 6);
    Log(QStringLiteral("Import"), QStringLiteral("same"), 6);
    EXPECT_EQ(ErrorRows().size(), 2U);
}

TEST_F(ErrorLog, CommasQuotesAndLineBreaksOfTheFreeTextComeBack) {
    const QStringList texts{QStringLiteral("a, b"),
                            QStringLiteral("say \"no\""),
                            QStringLiteral("one\r\ntwo"),
                            QStringLiteral(" blanks "),
                            QStringLiteral("\u00DCbergr\u00F6\u00DFe"),
                            QStringLiteral("\u03A9")};
    for (const QString& text : texts)
        Log(QStringLiteral("LoadDesignPage"), text, 13);
    const auto rows = ErrorRows();
    ASSERT_EQ(rows.size(), static_cast<std::size_t>(texts.size()));
    for (std::size_t row = 0; row < rows.size(); ++row)
        EXPECT_EQ(rows[row].at(5), texts[static_cast<qsizetype>(row)]);
}

TEST_F(ErrorLog, NewLogIsUtf8WhenItsFirstRowIsNotAscii) {
    Log(QStringLiteral("ZipForm"), QStringLiteral("Pr\u00FCfung.aff"), 76);
    EXPECT_TRUE(File().startsWith(kUtf8Mark + kHeader)) << File().toStdString();
    EXPECT_EQ(ErrorRows().at(0).at(5), QStringLiteral("Pr\u00FCfung.aff"));
}

TEST_F(ErrorLog, FirstRowThatIsNotAsciiTurnsTheLogIntoUtf8) {
    Log(QStringLiteral("ZipForm"), QStringLiteral("a.aff"), 76);
    const QByteArray before = File();
    Log(QStringLiteral("ZipForm"), QStringLiteral("\u03A9.aff"), 76);
    EXPECT_TRUE(File().startsWith(kUtf8Mark + before));
    EXPECT_EQ(ErrorRows().at(1).at(5), QStringLiteral("\u03A9.aff"));
}

TEST_F(ErrorLog, LogInTheCodePageTurnsIntoUtf8) {
    Write(QStringLiteral("errors.csv"), kHeader + "1/1/2000,00:00:00,a,b,c,f\xFCr\r\n");
    Log(QStringLiteral("ZipForm"), QStringLiteral("\u03A9"), 76);
    const auto rows = ErrorRows();
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].at(5), QStringLiteral("f\u00FCr"));
    EXPECT_EQ(rows[1].at(5), QStringLiteral("\u03A9"));
}

// A row that is added to the file that is there leaves the file itself in place.
TEST_F(ErrorLog, OnlyTheFirstRowThatIsNotAsciiRewritesTheLog) {
    Log(QStringLiteral("ZipForm"), QStringLiteral("a"), 76);
    Log(QStringLiteral("ZipForm"), QStringLiteral("\u00FC"), 76);
    const QString path = m_folder.filePath(QStringLiteral("errors.csv"));
    QFile same(path);
    ASSERT_TRUE(same.open(QIODevice::ReadOnly));
    for (const char16_t* text : {u"\u00FC", u"b", u"\u03A9"})
        Log(QStringLiteral("ZipForm"), QString::fromUtf16(text), 76);
    EXPECT_EQ(same.readAll(), File());
    EXPECT_EQ(ErrorRows().size(), 5U);
}

TEST_F(ErrorLog, RowsAddedOneByOneEqualThoseOfTheWholeTable) {
    Write(QStringLiteral("errors.csv"), kHeader.chopped(2));
    Log(QStringLiteral("FListLookup"), QStringLiteral("Error loading list: a,\"b\""), 53);
    Log(QStringLiteral("FListLookup"), QStringLiteral("Error loading list: a,\"b\""), 53);
    const QList<QByteArray> lines = File().split('\n');
    ASSERT_EQ(lines.size(), 4);
    const auto withoutTime = [](const QByteArray& line) { return line.mid(line.indexOf(",Tolvane")); };
    EXPECT_EQ(withoutTime(lines[1]), withoutTime(lines[2]));
}

TEST_F(ErrorLog, EmptyFileGetsItsHeader) {
    Write(QStringLiteral("errors.csv"), "");
    Log(QStringLiteral("ZipForm"), QString(), 61);
    EXPECT_TRUE(File().startsWith(kHeader));
    EXPECT_EQ(ErrorRows().size(), 1U);
}

TEST_F(ErrorLog, FileWithOtherColumnsKeepsThemAndItsRows) {
    Write(QStringLiteral("errors.csv"), "Sub,Note\r\nold,mine\r\n");
    Log(QStringLiteral("ZipForm"), QStringLiteral("x"), 61);
    const auto rows = ErrorRows();
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].first(2), QStringList({QStringLiteral("old"), QStringLiteral("mine")}));
    EXPECT_EQ(rows[1].first(2), QStringList({QStringLiteral("ZipForm"), QString()}));
    EXPECT_TRUE(rows[1].contains(QStringLiteral("61: Disk full"))) << rows[1].join(u'|').toStdString();
}

TEST_F(ErrorLog, FileWithoutALastLineEndKeepsItsLastRow) {
    Write(QStringLiteral("errors.csv"), kHeader + "1/1/2000,00:00:00,a,b,c,d");
    Log(QStringLiteral("ZipForm"), QString(), 61);
    const auto rows = ErrorRows();
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].at(5), QStringLiteral("d"));
    EXPECT_EQ(rows[1].at(3), QStringLiteral("ZipForm"));
}

TEST_F(ErrorLog, LogThatCannotBeWrittenIsRaised) {
    QDir(m_folder.path()).mkdir(QStringLiteral("errors.csv"));
    EXPECT_EQ(FailureOf([&] { Log(QStringLiteral("ZipForm"), QString(), 61); }), failure::kPathAccess);
}

TEST_F(ErrorLog, ReadOnlyLogIsRaisedAndKept) {
    const QByteArray before = kHeader + "1/1/2000,00:00:00,a,b,c,d\r\n";
    QFile file(Write(QStringLiteral("errors.csv"), before));
    file.setPermissions(QFile::ReadOwner);
    EXPECT_EQ(FailureOf([&] { Log(QStringLiteral("ZipForm"), QString(), 61); }), failure::kPathAccess);
    EXPECT_EQ(File(), before);
}

TEST_F(ErrorLog, LogThatAnotherProgramHoldsIsRaisedAndKept) {
    Log(QStringLiteral("ZipForm"), QString(), 61);
    const QByteArray before = File();
    QFile held(m_folder.filePath(QStringLiteral("errors.csv")));
    ASSERT_TRUE(held.open(QIODevice::ReadWrite));
    ASSERT_EQ(flock(held.handle(), LOCK_EX), 0);
    EXPECT_EQ(FailureOf([&] { Log(QStringLiteral("ZipForm"), QString(), 61); }), failure::kPermissionDenied);
    EXPECT_EQ(File(), before);
}

TEST_F(ErrorLog, FolderThatIsNotThereIsRaised) {
    m_application->LogFolder = m_folder.filePath(QStringLiteral("none/"));
    EXPECT_EQ(FailureOf([&] { Log(QStringLiteral("ZipForm"), QString(), 61); }), failure::kPathNotFound);
}

TEST_F(ErrorLog, LoggedStepLogsItsFailureAndHandsItBack) {
    const auto caught = LoggedStep(*m_application, QStringLiteral("UnZipForm"), QStringLiteral("a.aff"),
                                   [] { throw Failure(failure::kInvalidFormat); });
    ASSERT_TRUE(caught);
    EXPECT_EQ(caught->Number(), 321);
    const auto rows = ErrorRows();
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].at(3), QStringLiteral("UnZipForm"));
    EXPECT_TRUE(rows[0].at(4).startsWith(QStringLiteral("321: ")));
}

TEST_F(ErrorLog, LoggedStepThatSucceedsWritesNothing) {
    EXPECT_FALSE(LoggedStep(*m_application, QStringLiteral("x"), QString(), [] {}));
    EXPECT_FALSE(QFile::exists(m_folder.filePath(QStringLiteral("errors.csv"))));
}

TEST_F(ErrorLog, LoggedStepIgnoresAFailureOfTheLog) {
    QDir(m_folder.path()).mkdir(QStringLiteral("errors.csv"));
    const auto caught = LoggedStep(*m_application, QStringLiteral("x"), QString(),
                                   [] { throw Failure(failure::kTypeMismatch); });
    ASSERT_TRUE(caught);
    EXPECT_EQ(caught->Number(), 13);
}

}  // namespace

}  // namespace sheetwright

#include "core/folders.h"

#include "support/test_application.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include <sys/stat.h>

#include <tuple>

namespace sheetwright {

namespace {

const QString kSection = QStringLiteral("Tolvane Quillon");

class RememberedFolder : public ApplicationTest {
  protected:
    void Store(const QString& key, const QString& value) {
        m_application->settings.Write(m_application->Title, kSection, key, value);
    }
    [[nodiscard]] QString Stored(const QString& key) const {
        return m_application->settings.Read(m_application->Title, kSection, key, QStringLiteral("none"));
    }
    [[nodiscard]] static QString Here() { return QDir::currentPath() + QDir::separator(); }
    [[nodiscard]] static QString Data() { return Here() + QStringLiteral("DATA") + QDir::separator(); }
};

TEST_F(RememberedFolder, DefaultsAreRelativeToTheCurrentDirectory) {
    EXPECT_EQ(FormFolder(*m_application), Data());
    EXPECT_EQ(TemplateFolder(*m_application), Data());
    EXPECT_EQ(ListFolder(*m_application), Here());
}

TEST_F(RememberedFolder, IsKeptUnderTheTitleOfTheApplication) {
    SetFormFolder(*m_application, QStringLiteral("/forms/"));
    SetTemplateFolder(*m_application, QStringLiteral("/templates/"));
    SetListFolder(*m_application, QStringLiteral("/lists/"));
    EXPECT_EQ(Stored(QStringLiteral("aff folder")), QStringLiteral("/forms/"));
    EXPECT_EQ(Stored(QStringLiteral("aft folder")), QStringLiteral("/templates/"));
    EXPECT_EQ(Stored(QStringLiteral("list folder")), QStringLiteral("/lists/"));
    EXPECT_EQ(FormFolder(*m_application), QStringLiteral("/forms/"));
    EXPECT_EQ(TemplateFolder(*m_application), QStringLiteral("/templates/"));
    EXPECT_EQ(ListFolder(*m_application), QStringLiteral("/lists/"));
    m_application->Title = QStringLiteral("Formularwerk");
    EXPECT_EQ(FormFolder(*m_application), Data());
}

TEST_F(RememberedFolder, ReadingAddsTheSeparatorThatIsLacking) {
    Store(QStringLiteral("aff folder"), QStringLiteral("C:\\forms"));
    Store(QStringLiteral("list folder"), QStringLiteral("/lists"));
    EXPECT_EQ(FormFolder(*m_application), QStringLiteral("C:\\forms\\"));
    EXPECT_EQ(ListFolder(*m_application), QStringLiteral("/lists/"));
}

TEST_F(RememberedFolder, EmptyValueCountsAsNone) {
    SetFormFolder(*m_application, QString());
    EXPECT_EQ(FormFolder(*m_application), Data());
}

TEST_F(RememberedFolder, RemovableDiskIsNotRemembered) {
    for (const QString& path : {QStringLiteral("A:\\"), QStringLiteral("a:forms"), QStringLiteral("B:\\x\\"),
                                QStringLiteral("b:")}) {
        SetFormFolder(*m_application, path);
        SetTemplateFolder(*m_application, path);
    }
    EXPECT_EQ(Stored(QStringLiteral("aff folder")), QStringLiteral("none"));
    EXPECT_EQ(Stored(QStringLiteral("aft folder")), QStringLiteral("none"));
}

TEST_F(RememberedFolder, ListFolderMayBeOnARemovableDisk) {
    SetListFolder(*m_application, QStringLiteral("A:\\"));
    EXPECT_EQ(ListFolder(*m_application), QStringLiteral("A:\\"));
}

TEST_F(RememberedFolder, ReportModeReadsTheTemplateFolderUnderAnotherKey) {
    Restart(QStringLiteral("Tolvane Reports"));
    SetTemplateFolder(*m_application, QStringLiteral("/templates/"));
    EXPECT_EQ(TemplateFolder(*m_application), Data());
    Store(QStringLiteral("add folder"), QStringLiteral("/given/"));
    EXPECT_EQ(TemplateFolder(*m_application), QStringLiteral("/given/"));
}

TEST_F(RememberedFolder, KeeperRestoresWhatWasRemembered) {
    SetFormFolder(*m_application, QStringLiteral("/forms/"));
    {
        const RememberedFolders keeper(*m_application);
        SetFormFolder(*m_application, QStringLiteral("/elsewhere/"));
        SetTemplateFolder(*m_application, QStringLiteral("/elsewhere/"));
    }
    EXPECT_EQ(FormFolder(*m_application), QStringLiteral("/forms/"));
    EXPECT_EQ(TemplateFolder(*m_application), Data());
}

TEST_F(RememberedFolder, KeeperWritesNothingWhenNothingChanged) {
    { const RememberedFolders keeper(*m_application); }
    EXPECT_EQ(Stored(QStringLiteral("aff folder")), QStringLiteral("none"));
}

class TempDirectory : public ApplicationTest {
  protected:
    // Path of a directory below TEMP, made with its files.
    QString Make(const QString& name, const QStringList& files = {}) {
        const QString path = m_folder.filePath(QStringLiteral("TEMP/") + name + u'/');
        QDir().mkpath(path);
        for (const QString& file : files)
            Write(QStringLiteral("TEMP/") + name + u'/' + file, "x");
        return path;
    }
    [[nodiscard]] bool Exists(const QString& name) const {
        return QDir(m_folder.filePath(QStringLiteral("TEMP/") + name)).exists();
    }
    [[nodiscard]] QStringList Names(const QString& path) const {
        return QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    // Numbers in this order, the last one for ever.
    [[nodiscard]] static std::function<std::uint32_t()> Drawing(std::vector<std::uint32_t> numbers) {
        return [numbers, at = std::size_t{0}]() mutable {
            const std::uint32_t number = numbers[at];
            if (at + 1 < numbers.size()) ++at;
            return number;
        };
    }
};

TEST_F(TempDirectory, SweepMakesTheRootAndMakesItCurrent) {
    SweepTempDirectories(*m_application);
    EXPECT_EQ(m_application->CurrentTempDir,
              m_application->InstallFolder + QStringLiteral("TEMP") + QDir::separator());
    EXPECT_EQ(TempRoot(*m_application), m_application->CurrentTempDir);
    EXPECT_TRUE(QDir(m_application->CurrentTempDir).exists());
}

TEST_F(TempDirectory, SweepRemovesEmptyDirectoriesWithNumericNames) {
    Make(QStringLiteral("00000001"));
    Make(QStringLiteral("7"));
    Make(QStringLiteral("notes"));
    Make(QStringLiteral("12a"));
    Make(QStringLiteral("1.5"));
    SweepTempDirectories(*m_application);
    EXPECT_EQ(Names(m_application->CurrentTempDir),
              QStringList({QStringLiteral("1.5"), QStringLiteral("12a"), QStringLiteral("notes")}));
}

TEST_F(TempDirectory, DirectoryLeftWithFilesByACrashSurvivesTheSweepAndALaterEmptyOneDoesNot) {
    Make(QStringLiteral("00000001"), {QStringLiteral("form.aff")});
    Make(QStringLiteral("00000002"), {QStringLiteral(".hidden")});
    Make(QStringLiteral("00000003"));
    SweepTempDirectories(*m_application);
    EXPECT_EQ(Names(m_application->CurrentTempDir),
              QStringList({QStringLiteral("00000001"), QStringLiteral("00000002")}));
}

TEST_F(TempDirectory, SweepLooksAtAHundredNames) {
    for (int number = 1; number <= 102; ++number)
        Make(QString::number(number).rightJustified(8, u'0'));
    Make(QStringLiteral("00000000a"));
    SweepTempDirectories(*m_application);
    EXPECT_EQ(Names(m_application->CurrentTempDir).size(), 3);
}

TEST_F(TempDirectory, SweepStopsAtAHundredNamesThoughTheyStay) {
    for (int number = 1; number <= 100; ++number)
        Make(QString::number(number).rightJustified(8, u'0'), {QStringLiteral("form.aff")});
    Make(QStringLiteral("00000101"));
    SweepTempDirectories(*m_application);
    EXPECT_TRUE(Exists(QStringLiteral("00000101")));
    EXPECT_EQ(Names(m_application->CurrentTempDir).size(), 101);
}

TEST_F(TempDirectory, SweepLeavesWhatHoldsAFolderOrIsNone) {
    Make(QStringLiteral("00000001/sub"));
    Write(QStringLiteral("TEMP/00000002"), "a file");
    Make(QStringLiteral("kept"));
    ASSERT_TRUE(QFile::link(m_folder.filePath(QStringLiteral("TEMP/kept")),
                            m_folder.filePath(QStringLiteral("TEMP/00000003"))));
    SweepTempDirectories(*m_application);
    EXPECT_EQ(Names(m_application->CurrentTempDir),
              QStringList({QStringLiteral("00000001"), QStringLiteral("00000002"), QStringLiteral("00000003"),
                           QStringLiteral("kept")}));
}

TEST_F(TempDirectory, SweepIgnoresThatTheRootCannotBeMade) {
    Write(QStringLiteral("TEMP"), "a file");
    EXPECT_EQ(FailureOf([&] { SweepTempDirectories(*m_application); }), std::nullopt);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(TempDirectory, IsNamedByEightDigitsAndEmpty) {
    const QString path = MakeTempDirectory(*m_application, QString());
    const QString below = path.sliced(TempRoot(*m_application).size());
    EXPECT_TRUE(path.startsWith(TempRoot(*m_application)));
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^[0-9]{8}[/\\\\]$")).match(below).hasMatch())
        << below.toStdString();
    EXPECT_TRUE(QDir(path).exists());
    EXPECT_TRUE(Names(path).isEmpty());
}

TEST_F(TempDirectory, ShortNumberIsPaddedWithNoughts) {
    EXPECT_EQ(MakeTempDirectory(*m_application, QString(), Drawing({42})),
              TempRoot(*m_application) + QStringLiteral("00000042") + QDir::separator());
}

TEST_F(TempDirectory, IsNeverOneThatExists) {
    Make(QStringLiteral("00000001"), {QStringLiteral("form.aff")});
    Make(QStringLiteral("00000002"));
    const QString path = MakeTempDirectory(*m_application, QString(), Drawing({1, 2, 3}));
    EXPECT_EQ(path, TempRoot(*m_application) + QStringLiteral("00000003") + QDir::separator());
}

TEST_F(TempDirectory, DrawingEndsThoughEveryNumberIsTaken) {
    Make(QStringLiteral("00000001"));
    EXPECT_EQ(MakeTempDirectory(*m_application, QString(), Drawing({1})),
              TempRoot(*m_application) + QStringLiteral("00000001") + QDir::separator());
}

TEST_F(TempDirectory, TestOfTheRootLeavesNothing) {
    const QString path = MakeTempDirectory(*m_application, QString());
    EXPECT_EQ(Names(TempRoot(*m_application)), QStringList(QDir(path).dirName()));
}

TEST_F(TempDirectory, OldDirectoryOfAReusedWindowGoes) {
    const QString old =
        Make(QStringLiteral("00000001"), {QStringLiteral("form.aff"), QStringLiteral("logo.bmp")});
    const QString path = MakeTempDirectory(*m_application, old);
    EXPECT_FALSE(QDir(old).exists());
    EXPECT_TRUE(QDir(path).exists());
}

TEST_F(TempDirectory, WantedDirectoryThatIsNotThereIsReplacedByTemp) {
    const QString path = MakeTempDirectory(*m_application, m_folder.filePath(QStringLiteral("gone/TEMP/1/")));
    EXPECT_TRUE(QDir(path).exists());
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(TempDirectory, WantedDirectoryThatCannotBeWrittenStays) {
    const QString old = Make(QStringLiteral("00000001"), {QStringLiteral("form.aff")});
    QDir(old).mkdir(QStringLiteral("test.write"));
    const QString path = MakeTempDirectory(*m_application, old);
    EXPECT_EQ(Names(old), QStringList({QStringLiteral("form.aff"), QStringLiteral("test.write")}));
    EXPECT_TRUE(QDir(path).exists());
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(TempDirectory, RootOfTempAsTheWantedDirectoryStays) {
    const QString file = Write(QStringLiteral("TEMP/form.aff"), "x");
    const QString path = MakeTempDirectory(*m_application, TempRoot(*m_application));
    EXPECT_TRUE(QDir(path).exists());
    EXPECT_TRUE(QFile::exists(file));
}

TEST_F(TempDirectory, TestOfTheRootFollowsNoLinkAndWaitsForNoPipe) {
    const QString mine = Write(QStringLiteral("mine.txt"), "mine");
    const QString probe = Path(QStringLiteral("TEMP/test.write"));
    ASSERT_TRUE(QFile::link(mine, probe));
    EXPECT_TRUE(QDir(MakeTempDirectory(*m_application, QString())).exists());
    EXPECT_EQ(Read(QStringLiteral("mine.txt")), "mine");
    ASSERT_EQ(::mkfifo(QFile::encodeName(probe).constData(), 0600), 0);
    EXPECT_TRUE(QDir(MakeTempDirectory(*m_application, QString())).exists());
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(TempDirectory, WantedDirectoryOutsideTempStays) {
    const QString file = Write(QStringLiteral("mine/form.aff"), "x");
    std::ignore = MakeTempDirectory(*m_application, m_folder.filePath(QStringLiteral("mine/")));
    EXPECT_TRUE(QFile::exists(file));
}

TEST_F(TempDirectory, NowhereToWriteIsTheOnlyMessage) {
    Write(QStringLiteral("TEMP"), "a file");
    const QString path =
        MakeTempDirectory(*m_application, m_folder.filePath(QStringLiteral("TEMP/00000001/")));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Cannot write to Temporary Directory")));
    EXPECT_FALSE(QDir(path).exists());
    EXPECT_TRUE(path.startsWith(TempRoot(*m_application)));
}

TEST_F(TempDirectory, RemovalDeletesFilesAndDirectory) {
    RemoveTempDirectory(
        Make(QStringLiteral("00000001"), {QStringLiteral("form.aff"), QStringLiteral(".hidden")}));
    EXPECT_FALSE(Exists(QStringLiteral("00000001")));
    EXPECT_TRUE(Exists(QString()));
}

TEST_F(TempDirectory, RemovalAcceptsEitherSeparator) {
    QString path = Make(QStringLiteral("00000001"), {QStringLiteral("form.aff")});
    RemoveTempDirectory(path.replace(u'/', u'\\'));
    EXPECT_FALSE(Exists(QStringLiteral("00000001")));
}

TEST_F(TempDirectory, RootIsNeverRemoved) {
    const QString file = Write(QStringLiteral("TEMP/form.aff"), "x");
    const QString root = m_folder.filePath(QStringLiteral("TEMP"));
    for (const QString& path : {root + u'/', root, root + QStringLiteral("//"), root + QStringLiteral("/./"),
                                root + QStringLiteral("/1/../"), root + u'\\'})
        RemoveTempDirectory(path);
    EXPECT_TRUE(QFile::exists(file));
}

TEST_F(TempDirectory, DirectoryNamedTempInAnyCaseIsNeverRemoved) {
    const QString file = Write(QStringLiteral("TEMP/Temp/form.aff"), "x");
    RemoveTempDirectory(m_folder.filePath(QStringLiteral("TEMP/Temp/")));
    EXPECT_TRUE(QFile::exists(file));
}

TEST_F(TempDirectory, OnlyDirectoriesBelowTempAreRemoved) {
    const QString file = Write(QStringLiteral("other/form.aff"), "x");
    const QString small = Write(QStringLiteral("temp/1/form.aff"), "x");
    RemoveTempDirectory(m_folder.filePath(QStringLiteral("other/")));
    RemoveTempDirectory(m_folder.filePath(QStringLiteral("temp/1/")));
    RemoveTempDirectory(m_folder.filePath(QStringLiteral("TEMP/../other/")));
    RemoveTempDirectory(QString());
    EXPECT_TRUE(QFile::exists(file));
    EXPECT_TRUE(QFile::exists(small));
}

TEST_F(TempDirectory, PathThatSpellsTempInSmallLettersIsNotRemoved) {
    const QString path = Make(QStringLiteral("00000001"), {QStringLiteral("form.aff")});
    RemoveTempDirectory(m_folder.filePath(QStringLiteral("temp/00000001/")));
    EXPECT_EQ(Names(path), QStringList(QStringLiteral("form.aff")));
}

TEST_F(TempDirectory, DirectoryWithAProgramSurvivesUnchanged) {
    for (const QString& program : {QStringLiteral("x.exe"), QStringLiteral("X.EXE")}) {
        const QString path = Make(QStringLiteral("00000001"), {QStringLiteral("form.aff"), program});
        RemoveTempDirectory(path);
        EXPECT_EQ(Names(path).size(), 2) << program.toStdString();
        QDir(path).removeRecursively();
    }
}

TEST_F(TempDirectory, DirectoryWithAFolderInItStaysWithoutItsFiles) {
    const QString path =
        Make(QStringLiteral("00000001"), {QStringLiteral("form.aff"), QStringLiteral("sub/x")});
    RemoveTempDirectory(path);
    EXPECT_EQ(Names(path), QStringList(QStringLiteral("sub")));
}

TEST_F(TempDirectory, RemovingWhatIsNotThereIsNoFailure) {
    EXPECT_EQ(FailureOf([&] { RemoveTempDirectory(m_folder.filePath(QStringLiteral("TEMP/5/"))); }),
              std::nullopt);
}

}  // namespace

}  // namespace sheetwright

#include "document/form_archive.h"

#include "document/zip_builder.h"
#include "support/test_application.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>

namespace sheetwright {
namespace {

const QByteArray kText = "VERSION 1.0.4\r\nBEGIN DESIGN\r\nEND DESIGN\r\nBEGIN DATA\r\nEND DATA\r\n";

class FormArchiveTest : public ApplicationTest {
  protected:
    // Makes the log one that can't be written: thousands of rows would take longer than what is tested.
    void StopTheLog() const { QDir().mkpath(m_application->WritableFolder + QStringLiteral("errors.csv")); }

    QString Folder(const QString& name) const { return Path(name + QStringLiteral("/.")).chopped(1); }
    QString Destination() const { return Folder(QStringLiteral("unpacked")); }

    QStringList Unpacked() const {
        return QDir(Destination())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

    void UnZip(const QString& path) { UnZipForm(*m_application, path, Destination()); }

    QString Form(const std::vector<BuiltMember>& members,
                 const QString& name = QStringLiteral("form.aff")) const {
        return Write(name, BuildZip(members));
    }

    // Unpacks a form that must be refused: with this number, a row in the log, and nothing left behind.
    void ExpectRefusal(const QByteArray& archive, int number, const QString& member) {
        const QString path = Write(QStringLiteral("bad.aff"), archive);
        UnZip(path);
        const QString text = QStringLiteral("Error code %1").arg(number);
        ASSERT_EQ(m_ui.messages.size(), 1U);
        EXPECT_EQ(m_ui.messages[0],
                  (ShownMessage{text, m_application->Title, MessageIcon::Critical, MessageButtons::Ok}));
        EXPECT_EQ(Unpacked(), QStringList());
        const std::vector<QStringList> rows = ErrorRows();
        ASSERT_EQ(rows.size(), 1U);
        EXPECT_EQ(rows[0][3], QStringLiteral("UnZipForm"));
        EXPECT_EQ(rows[0][4], QString::number(number) + QStringLiteral(": ") + FailureText(number));
        EXPECT_EQ(rows[0][5], member.isEmpty() ? path : path + u' ' + member);
    }

    void ExpectRefusedName(const QByteArray& name, const QString& shown) {
        ExpectRefusal(BuildZip({{"a.aff", kText}, {name, "picture"}}), failure::kBadFileName, shown);
    }
};

TEST_F(FormArchiveTest, TextMemberIsToldByTheLastFourCharactersOfItsName) {
    for (const QString& name : {QStringLiteral("a.aff"), QStringLiteral("A.AFT"), QStringLiteral(".af1")})
        EXPECT_TRUE(IsTextMemberName(name)) << name.toStdString();
    for (const QString& name : {QStringLiteral("a.af"), QStringLiteral("a.afff"), QStringLiteral("aff"),
                                QStringLiteral("a.bmp"), QString(), QStringLiteral("a.aff ")})
        EXPECT_FALSE(IsTextMemberName(name)) << name.toStdString();
}

TEST_F(FormArchiveTest, FirstSevenCharactersTellPlainText) {
    EXPECT_TRUE(IsPlainTextForm(Write(QStringLiteral("1"), "VERSION 1.0.0\r\n")));
    EXPECT_TRUE(IsPlainTextForm(Write(QStringLiteral("2"), "VERSIONS")));
    EXPECT_TRUE(IsPlainTextForm(Write(QStringLiteral("3"), "\xEF\xBB\xBFVERSION 1.0.0")));
    EXPECT_FALSE(IsPlainTextForm(Write(QStringLiteral("4"), "Version 1.0.0")));
    EXPECT_FALSE(IsPlainTextForm(Write(QStringLiteral("5"), "\r\nVERSION 1.0.0")));
    EXPECT_FALSE(IsPlainTextForm(Write(QStringLiteral("6"), "VERS\nION")));
    EXPECT_FALSE(IsPlainTextForm(Write(QStringLiteral("7"), "")));
}

TEST_F(FormArchiveTest, FileThatCantBeOpenedRaises) {
    const QString missing = Path(QStringLiteral("missing.aff"));
    const QString nowhere = m_folder.filePath(QStringLiteral("no/such/folder.aff"));
    EXPECT_EQ(FailureOf([&] { UnZip(missing); }), failure::kFileNotFound);
    EXPECT_EQ(FailureOf([&] { UnZip(nowhere); }), failure::kPathNotFound);
    EXPECT_EQ(FailureOf([&] { UnZip(Folder(QStringLiteral("folder.aff"))); }), failure::kPathAccess);
    EXPECT_EQ(FailureOf([&] { static_cast<void>(ArchiveMembers(missing)); }), failure::kFileNotFound);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(FormArchiveTest, PipeIsRefusedWithoutWaitingForIt) {
    const QString pipe = Path(QStringLiteral("pipe.aff"));
    ASSERT_EQ(::mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    EXPECT_EQ(FailureOf([&] { UnZip(pipe); }), failure::kPathAccess);
}

TEST_F(FormArchiveTest, PlainTextIsCopiedUnderItsOwnName) {
    UnZip(Write(QStringLiteral("Old Form.aff"), kText));
    EXPECT_EQ(Unpacked(), QStringList(QStringLiteral("Old Form.aff")));
    EXPECT_EQ(Read(QStringLiteral("unpacked/Old Form.aff")), kText);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(FormArchiveTest, PlainTextNeedsNoFormsExtension) {
    UnZip(Write(QStringLiteral("form.txt"), kText));
    EXPECT_EQ(Unpacked(), QStringList(QStringLiteral("form.txt")));
}

TEST_F(FormArchiveTest, MembersAreUnpackedUnderTheirNames) {
    UnZip(Form({{"form.aff", kText, true}, {"logo.bmp", "picture"}, {"import1.csv", ""}}));
    EXPECT_EQ(Unpacked(), QStringList({QStringLiteral("form.aff"), QStringLiteral("import1.csv"),
                                       QStringLiteral("logo.bmp")}));
    EXPECT_EQ(Read(QStringLiteral("unpacked/form.aff")), kText);
    EXPECT_EQ(Read(QStringLiteral("unpacked/logo.bmp")), "picture");
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(FormArchiveTest, TextOfARenamedFormTakesTheNewName) {
    UnZip(Form({{"a.aff", kText}}, QStringLiteral("b.aff")));
    EXPECT_EQ(Unpacked(), QStringList(QStringLiteral("b.aff")));
}

TEST_F(FormArchiveTest, LastLetterOfTheTextMembersNameIsKept) {
    UnZip(Form({{"x.aff", kText}}, QStringLiteral("x.aft")));
    EXPECT_EQ(Unpacked(), QStringList(QStringLiteral("x.aff")));
}

TEST_F(FormArchiveTest, TextMemberIsFoundInAnyCase) {
    UnZip(Form({{"OLD.AFF", kText}}, QStringLiteral("new.aff")));
    EXPECT_EQ(Unpacked(), QStringList(QStringLiteral("new.afF")));
}

TEST_F(FormArchiveTest, OnlyTheLastExtensionIsCutForTheNewName) {
    UnZip(Form({{"a.aff", kText}}, QStringLiteral("year.2024.aff")));
    EXPECT_EQ(Unpacked(), QStringList(QStringLiteral("year.2024.aff")));
}

TEST_F(FormArchiveTest, NameThatIsTakenStopsTheRenameWithoutComplaint) {
    Write(QStringLiteral("unpacked/b.aff"), "older");
    UnZip(Form({{"a.aff", kText}}, QStringLiteral("b.aff")));
    EXPECT_EQ(Unpacked(), QStringList({QStringLiteral("a.aff"), QStringLiteral("b.aff")}));
    EXPECT_EQ(Read(QStringLiteral("unpacked/b.aff")), "older");
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(FormArchiveTest, ArchiveWithoutATextMemberIsUnpackedWithoutComplaint) {
    UnZip(Form({{"logo.bmp", "picture"}}));
    EXPECT_EQ(Unpacked(), QStringList(QStringLiteral("logo.bmp")));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(FormArchiveTest, ArchiveOfNoMembersUnpacksToNothing) {
    UnZip(Form({}));
    EXPECT_EQ(Unpacked(), QStringList());
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(FormArchiveTest, UnpackedFilesReplaceOlderOnesOfTheirName) {
    Write(QStringLiteral("unpacked/logo.bmp"), "older");
    UnZip(Form({{"form.aff", kText}, {"logo.bmp", "newer"}}));
    EXPECT_EQ(Read(QStringLiteral("unpacked/logo.bmp")), "newer");
}

TEST_F(FormArchiveTest, FolderOfAMembersNameStopsTheUnpacking) {
    const QString folder = Folder(QStringLiteral("unpacked/logo.bmp"));
    UnZip(Form({{"form.aff", kText}, {"logo.bmp", "picture"}}));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Error code 75")));
    EXPECT_EQ(Unpacked(), QStringList(QStringLiteral("logo.bmp")));
    EXPECT_TRUE(QFileInfo(folder).isDir());
}

TEST_F(FormArchiveTest, MissingDestinationIsTold) {
    UnZipForm(*m_application, Form({{"form.aff", kText}}), m_folder.filePath(QStringLiteral("none/")));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Error code 76")));
    EXPECT_FALSE(QFileInfo::exists(m_folder.filePath(QStringLiteral("none"))));
}

TEST_F(FormArchiveTest, NoDestinationIsNotTheCurrentFolder) {
    UnZipForm(*m_application, Form({{"form.aff", kText}}), QString());
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Error code 76")));
    EXPECT_FALSE(QFileInfo::exists(QStringLiteral("form.aff")));
}

TEST_F(FormArchiveTest, FailureToCopyAPlainTextTravels) {
    const QString path = Write(QStringLiteral("old.aff"), kText);
    const QString nowhere = m_folder.filePath(QStringLiteral("none/"));
    EXPECT_EQ(FailureOf([&] { UnZipForm(*m_application, path, nowhere); }), failure::kPathNotFound);
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(FormArchiveTest, FailingLogIsIgnored) {
    StopTheLog();
    UnZip(Write(QStringLiteral("bad.aff"), "no archive"));
    EXPECT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Error code 321")));
}

TEST_F(FormArchiveTest, StoredPathsSeparateWithBackslashes) {
    QString path = Form({{"form.aff", kText}}, QStringLiteral("Forms/form.aff"));
    UnZipForm(*m_application, path.replace(u'/', u'\\'), Destination().replace(u'/', u'\\'));
    EXPECT_EQ(Unpacked(), QStringList(QStringLiteral("form.aff")));
}

TEST_F(FormArchiveTest, WhatIsNoArchiveGives321) {
    ExpectRefusal("This is no form.", 321, {});
}

TEST_F(FormArchiveTest, EmptyFileGives321) {
    ExpectRefusal("", 321, {});
}

TEST_F(FormArchiveTest, FileOfOneByteGives321) {
    ExpectRefusal("P", 321, {});
}

TEST_F(FormArchiveTest, FolderInANameIsRefused) {
    ExpectRefusedName("a/b.bmp", QStringLiteral("a/b.bmp"));
}

TEST_F(FormArchiveTest, FolderWithABackslashIsRefused) {
    ExpectRefusedName("a\\b.bmp", QStringLiteral("a\\b.bmp"));
}

TEST_F(FormArchiveTest, DirectoryEntryIsRefused) {
    ExpectRefusedName("a/", QStringLiteral("a/"));
}

TEST_F(FormArchiveTest, AbsoluteNameIsRefused) {
    ExpectRefusedName("/etc/passwd", QStringLiteral("/etc/passwd"));
}

TEST_F(FormArchiveTest, WayUpIsRefused) {
    ExpectRefusedName("../b.bmp", QStringLiteral("../b.bmp"));
}

TEST_F(FormArchiveTest, ParentFolderAsANameIsRefused) {
    ExpectRefusedName("..", QStringLiteral(".."));
}

TEST_F(FormArchiveTest, OwnFolderAsANameIsRefused) {
    ExpectRefusedName(".", QStringLiteral("."));
}

TEST_F(FormArchiveTest, DriveLetterIsRefused) {
    ExpectRefusedName("C:b.bmp", QStringLiteral("C:b.bmp"));
}

TEST_F(FormArchiveTest, EmptyNameIsRefused) {
    ExpectRefusedName("", {});
}

TEST_F(FormArchiveTest, LineBreakInANameIsRefused) {
    ExpectRefusedName("a\nb.bmp", QStringLiteral("a?b.bmp"));
}

TEST_F(FormArchiveTest, NameLongerThan255BytesIsRefused) {
    const QByteArray name(256, 'n');
    ExpectRefusedName(name, QString::fromLatin1(name));
}

TEST_F(FormArchiveTest, NameOf255BytesIsAccepted) {
    const QByteArray name(255, 'n');
    UnZip(Form({{"form.aff", kText}, {name, ""}}));
    EXPECT_TRUE(Unpacked().contains(QString::fromLatin1(name)));
}

TEST_F(FormArchiveTest, NamesThatDifferInCaseOnlyAreRefused) {
    ExpectRefusal(BuildZip({{"a.aff", kText}, {"a.bmp", "1"}, {"A.BMP", "2"}}), failure::kFileExists,
                  QStringLiteral("A.BMP"));
}

TEST_F(FormArchiveTest, NamesThatDifferInCaseOfALetterBeyondAsciiAreRefused) {
    ExpectRefusal(BuildZip({{"a.aff", kText}, {"Öl.bmp", "1", false, 0x800}, {"öl.bmp", "2", false, 0x800}}),
                  failure::kFileExists, QStringLiteral("öl.bmp"));
}

TEST_F(FormArchiveTest, SecondTextMemberIsRefused) {
    ExpectRefusal(BuildZip({{"a.aff", kText}, {"b.aft", kText}}), failure::kInvalidFormat,
                  QStringLiteral("b.aft"));
}

TEST_F(FormArchiveTest, EncryptedMemberIsRefused) {
    ExpectRefusal(BuildZip({{.name = "a.aff", .data = kText, .flags = 1}}), failure::kPermissionDenied,
                  QStringLiteral("a.aff"));
}

TEST_F(FormArchiveTest, SymbolicLinkIsRefused) {
    ExpectRefusal(
        BuildZip({{.name = "a.aff", .data = kText},
                  {.name = "b.bmp", .data = "/etc/passwd", .madeBy = 3 << 8, .attributes = 0120777U << 16}}),
        failure::kInvalidFormat, QStringLiteral("b.bmp"));
}

TEST_F(FormArchiveTest, WrongChecksumRefusesTheWholeArchive) {
    ExpectRefusal(
        BuildZip({{.name = "a.aff", .data = kText}, {.name = "b.bmp", .data = "x", .claimedChecksum = 1}}),
        failure::kInvalidFormat, QStringLiteral("b.bmp"));
}

TEST_F(FormArchiveTest, TooManyMembersAreRefused) {
    std::vector<BuiltMember> members;
    for (int number = 0; number <= archive_limits::kMembers; ++number)
        members.push_back({QByteArray::number(number)});
    ExpectRefusal(BuildZip(members), failure::kTooManyFiles, {});
}

TEST_F(FormArchiveTest, ClaimOfAHugeMemberIsRefusedUnread) {
    ExpectRefusal(BuildZip({{.name = "a.aff", .data = kText, .claimedSize = 0x40000000}}), failure::kOverflow,
                  QStringLiteral("a.aff"));
}

TEST_F(FormArchiveTest, ClaimsAreAddedUp) {
    std::vector<BuiltMember> members{{"a.aff", kText}};
    for (const char* name : {"b", "c", "d"})
        members.push_back({.name = name, .claimedSize = 0x18000000});
    ExpectRefusal(BuildZip(members), failure::kOverflow, QStringLiteral("b"));
}

TEST_F(FormArchiveTest, BombThatClaimsLittleIsRefused) {
    const QByteArray zeros(80 * 1024 * 1024, '\0');
    ExpectRefusal(BuildZip({{.name = "a.aff", .data = kText},
                            {.name = "b.bmp", .data = zeros, .isDeflated = true, .claimedSize = 100}}),
                  failure::kOverflow, QStringLiteral("b.bmp"));
}

TEST_F(FormArchiveTest, BombThatTellsItsSizeIsRefusedUnread) {
    const QByteArray zeros(80 * 1024 * 1024, '\0');
    ExpectRefusal(BuildZip({{.name = "b.bmp", .data = zeros, .isDeflated = true}}), failure::kOverflow,
                  QStringLiteral("b.bmp"));
}

TEST_F(FormArchiveTest, RatioCountsAboveOneMebibyteOnly) {
    const QByteArray blank(1024 * 1024 - kText.size(), '\xFF');
    UnZip(Form({{"form.aff", kText}, {"white.bmp", blank, true}}));
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_EQ(QFileInfo(Path(QStringLiteral("unpacked/white.bmp"))).size(), blank.size());
}

TEST_F(FormArchiveTest, BombOfTwoMebibytesIsRefused) {
    ExpectRefusal(BuildZip({{"a.aff", kText}, {"b.bmp", QByteArray(2 * 1024 * 1024, '\0'), true}}),
                  failure::kOverflow, QStringLiteral("b.bmp"));
}

TEST_F(FormArchiveTest, EveryTruncationIsRefusedWhole) {
    StopTheLog();
    const QByteArray archive = BuildZip({{"form.aff", kText, true}, {"logo.bmp", "picture"}});
    for (qsizetype length = 0; length < archive.size(); ++length) {
        m_ui.messages.clear();
        UnZip(Write(QStringLiteral("cut.aff"), archive.first(length)));
        ASSERT_EQ(m_ui.MessageTexts(), QStringList(QStringLiteral("Error code 321"))) << length;
        ASSERT_EQ(Unpacked(), QStringList()) << length;
    }
}

TEST_F(FormArchiveTest, EveryFlippedBitIsRefusedWholeOrDoesNoHarm) {
    StopTheLog();
    const QByteArray archive = BuildZip({{"form.aff", kText, true}, {"logo.bmp", "picture"}});
    for (qsizetype bit = 0; bit < archive.size() * 8; ++bit) {
        QByteArray damaged = archive;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << (bit % 8)));
        m_ui.messages.clear();
        UnZip(Write(QStringLiteral("form.aff"), damaged));
        const QStringList unpacked = Unpacked();
        ASSERT_EQ(unpacked.size(), m_ui.messages.empty() ? 2 : 0) << bit;
        for (const QString& name : unpacked) {
            const QByteArray content = Read(QStringLiteral("unpacked/") + name);
            ASSERT_TRUE(content == kText || content == "picture") << bit;
            QFile::remove(Destination() + name);
        }
    }
}

TEST_F(FormArchiveTest, MembersAreListedInTheirOrder) {
    EXPECT_EQ(ArchiveMembers(Form({{"b.bmp", ""}, {"form.aff", kText}, {"a.bmp", ""}})),
              QStringList({QStringLiteral("b.bmp"), QStringLiteral("form.aff"), QStringLiteral("a.bmp")}));
}

TEST_F(FormArchiveTest, PlainTextListsItself) {
    EXPECT_EQ(ArchiveMembers(Write(QStringLiteral("old.aff"), kText)),
              QStringList(QStringLiteral("old.aff")));
}

TEST_F(FormArchiveTest, ListingRaisesWhatUnpackingWouldShow) {
    const auto failureOf = [this](const QByteArray& archive) {
        return FailureOf(
            [&] { static_cast<void>(ArchiveMembers(Write(QStringLiteral("bad.aff"), archive))); });
    };
    EXPECT_EQ(failureOf("no archive"), failure::kInvalidFormat);
    EXPECT_EQ(failureOf(BuildZip({{"../a.aff", kText}})), failure::kBadFileName);
    EXPECT_EQ(failureOf(BuildZip({{.name = "a.aff", .data = kText, .claimedChecksum = 1}})),
              failure::kInvalidFormat);
}

}  // namespace
}  // namespace sheetwright

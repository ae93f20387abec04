#include "document/zip_writer.h"

#include "core/atomic_file.h"
#include "core/failure.h"
#include "document/zip_reader.h"
#include "support/test_application.h"

#include <QFileInfo>
#include <QProcess>

namespace sheetwright {
namespace {

class ZipWriterTest : public ApplicationTest {
  protected:
    FileToPack File(const QString& name, const QByteArray& bytes) const { return {name, Write(name, bytes)}; }

    QString Pack(const std::vector<FileToPack>& files, Packing packing = Packing::Deflated) const {
        const QString path = Path(QStringLiteral("packed.zip"));
        AtomicFile output(path, QStringLiteral(" 2"));
        WriteZip(output.Beside(), files, packing);
        output.Replace();
        return path;
    }
};

TEST_F(ZipWriterTest, PacksWhatTheReaderReads) {
    const QString path = Pack({File(QStringLiteral("b.aff"), "text"), File(QStringLiteral("Öl €.bmp"), "")});
    const ZipReader reader(path, 10, ZipReader::Check::Strict);
    ASSERT_EQ(reader.Members().size(), 2U);
    EXPECT_EQ(reader.Members()[0].name, QStringLiteral("b.aff"));
    EXPECT_EQ(reader.Members()[1].name, QStringLiteral("Öl €.bmp"));
    QByteArray content;
    reader.Read(reader.Members()[0], [&](QByteArrayView piece) { content.append(piece); });
    EXPECT_EQ(content, "text");
}

TEST_F(ZipWriterTest, StoredMembersKeepTheirSize) {
    const FileToPack file = File(QStringLiteral("white.bmp"), QByteArray(100'000, '\xFF'));
    EXPECT_LT(QFileInfo(Pack({file}, Packing::Deflated)).size(), 2'000);
    EXPECT_GT(QFileInfo(Pack({file}, Packing::Stored)).size(), 100'000);
}

TEST_F(ZipWriterTest, WritingAgainLeavesNothingOfTheFirstTime) {
    const FileToPack file = File(QStringLiteral("a.aff"), QByteArray(100'000, 'x'));
    const QString path = Path(QStringLiteral("packed.zip"));
    AtomicFile output(path, QStringLiteral(" 2"));
    WriteZip(output.Beside(), {file}, Packing::Stored);
    WriteZip(output.Beside(), {file}, Packing::Deflated);
    EXPECT_LT(QFileInfo(output.BesidePath()).size(), 2'000);
    EXPECT_EQ(ZipReader(output.BesidePath(), 10, ZipReader::Check::Strict).Members().size(), 1U);
}

TEST_F(ZipWriterTest, FileThatHasGoneRaises53) {
    const std::vector<FileToPack> files{{QStringLiteral("gone.aff"), Path(QStringLiteral("gone.aff"))}};
    EXPECT_EQ(FailureOf([&] { static_cast<void>(Pack(files)); }), failure::kFileNotFound);
    EXPECT_FALSE(QFileInfo::exists(Path(QStringLiteral("packed.zip"))));
}

TEST_F(ZipWriterTest, StandardUnzipToolsReadTheArchive) {
    const QString path =
        Pack({File(QStringLiteral("b.aff"), QByteArray(100'000, 'x')),
              File(QStringLiteral("Öl.bmp"), "picture"), File(QStringLiteral("empty.txt"), "")});
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), {QStringLiteral("-t"), path});
    ASSERT_TRUE(unzip.waitForFinished()) << "unzip is needed for this test";
    EXPECT_EQ(unzip.exitCode(), 0) << unzip.readAll().toStdString();
}

}  // namespace
}  // namespace sheetwright

// Pages as images from the command line.

#include "apps/cli_test.h"
#include "document/zip_builder.h"
#include "print/metafile_builder.h"
#include "support/form_text.h"
#include "support/short_text.h"

#include <QFileInfo>
#include <QImage>

#include <sys/resource.h>
#include <sys/stat.h>

namespace sheetwright {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

QByteArray MixedForm() {
    FormText form;
    form.Page(S("Cover"), {S("PaperSize=9")}).Formula(S("A"), S("SETME(ADD(ME,1))"));
    form.Page(S("Wide"), {S("Orientation=2"), S("PaperSize=9")}).Field(S("C"), {S("BorderStyle=1")});
    form.Data(1, {S("A=1")}).Data(2, {S("C=two")}).Data(1, {S("A=3")});
    return form.Bytes();
}

bool HasInk(const QImage& image) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) != QColor(Qt::white)) return true;
    return false;
}

}  // namespace

class CliRender : public CliTest {
  protected:
    void SetUp() override { Write(S("a.aff"), MixedForm()); }

    [[nodiscard]] CliResult Render(const QStringList& rest) const {
        return Run(QStringList{S("render"), S("a.aff")} + rest);
    }
    // A form whose one picture field shows those bytes.
    void WriteFormWith(const QByteArray& bytes) const {
        BuiltMember text;
        text.name = "a.aff";
        text.data = FormText().Page(S("Cover")).PictureField(S("A")).Data(1, {S("A=a.png")}).Bytes();
        BuiltMember picture;
        picture.name = "a.png";
        picture.data = bytes;
        Write(S("a.aff"), BuildZip({text, picture}));
    }
    [[nodiscard]] QImage Image(const char* name) const { return QImage(Path(S(name))); }
    [[nodiscard]] QStringList Files() const {
        return QDir(Path(S("."))).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }
};

TEST_F(CliRender, EachPageBecomesAnImageOfItsPaper) {
    const CliResult result = Render({S("--png"), S("page%d.png")});
    EXPECT_EQ(result.out, "page1.png\npage2.png\npage3.png\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Image("page1.png").size(), QSize(794, 1123));
    EXPECT_EQ(Image("page2.png").size(), QSize(1123, 794));
    EXPECT_EQ(Image("page3.png").size(), QSize(794, 1123));
    for (const char* name : {"page1.png", "page2.png", "page3.png"})
        EXPECT_TRUE(HasInk(Image(name))) << name;
    EXPECT_EQ(Files(), QStringList({S("a.aff"), S("page1.png"), S("page2.png"), S("page3.png")}));
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliRender, DrawsInTheResolutionAndSaysSo) {
    EXPECT_EQ(Render({S("--png"), S("p%d.png"), S("--pages"), S("1"), S("--dpi"), S("192")}).status, 0);
    const QImage image = Image("p1.png");
    EXPECT_EQ(image.size(), QSize(1587, 2245));
    EXPECT_EQ(qRound(image.dotsPerMeterX() * 0.0254), 192);
}

TEST_F(CliRender, PagesChoosesSomeOfThemAndNumbersCanBePadded) {
    EXPECT_EQ(Render({S("--png"), S("p%03d.png"), S("--pages"), S("2-")}).out, "p002.png\np003.png\n");
    EXPECT_EQ(Render({S("--png"), S("p%09d.png"), S("--pages"), S("-1")}).out, "p000000001.png\n");
    EXPECT_EQ(Render({S("--png"), S("50%%d.PNG"), S("--pages"), S("2")}).out, "50%2.PNG\n");
    EXPECT_EQ(Render({S("--png"), S("one.png"), S("--pages"), S("2")}).out, "one.png\n");
    EXPECT_EQ(Image("one.png"), Image("p002.png"));
}

TEST_F(CliRender, TheFormIsDrawnAsItIsStored) {
    EXPECT_EQ(Render({S("--png"), S("p%d.png")}).status, 0);
    EXPECT_EQ(Read(S("a.aff")), MixedForm());
    EXPECT_NE(Image("p1.png"), Image("p3.png")) << "1 and 3, no sums";
}

TEST_F(CliRender, TheSameFormGivesTheSameImages) {
    EXPECT_EQ(Render({S("--png"), S("p%d.png"), S("--pages"), S("2")}).status, 0);
    EXPECT_EQ(Render({S("--png"), S("q%d.png"), S("--pages"), S("2")}).status, 0);
    EXPECT_EQ(Read(S("p2.png")), Read(S("q2.png")));
}

TEST_F(CliRender, WrongArgumentsAreToldAndNothingIsWritten) {
    const std::vector<std::pair<QStringList, const char*>> cases{
        {{}, "--png is needed"},
        {{S("--png"), S("page.png")}, "--png wants a %d for the page's number"},
        {{S("--png"), S("page%x.png")}, "--png wants a %d for the page's number"},
        {{S("--png"), S("page%3d.png")}, "--png wants a %d for the page's number"},
        {{S("--png"), S("page%0d.png")}, "--png wants a %d for the page's number"},
        {{S("--png"), S("%d-%d.png")}, "--png wants one %d, not more: \"%d-%d.png\""},
        {{S("--png"), S("page%d.jpg")}, "the name must end in .png: \"page%d.jpg\""},
        {{S("--png"), S("%d.png"), S("--dpi"), S("9")}, "--dpi wants 10 to 1200, not \"9\""},
        {{S("--png"), S("%d.png"), S("--dpi"), S("1201")}, "--dpi wants 10 to 1200, not \"1201\""},
        {{S("--png"), S("%d.png"), S("--dpi"), S("-96")}, "--dpi wants 10 to 1200, not \"-96\""},
        {{S("--png"), S("%d.png"), S("--dpi"), S("96.5")}, "--dpi wants 10 to 1200, not \"96.5\""},
        {{S("--png"), S("%d.png"), S("--dpi"), S("9999999999")},
         "--dpi wants 10 to 1200, not \"9999999999\""},
        {{S("--png"), S("%d.png"), S("--dpi"), S("")}, "--dpi wants 10 to 1200, not \"\""},
        {{S("--png"), S("%d.png"), S("--pages"), S("0")}, "there are no pages 0: the form has 3"},
        {{S("--png"), S("%d.png"), S("--pages"), S("2-4")}, "there are no pages 2-4: the form has 3"},
        {{S("--png"), S("%d.png"), S("--pages"), S("all")}, "--pages wants A, A-B, A- or -B, not \"all\""},
        {{S("--png"), S("%d.png"), S("--pdf"), S("a.pdf")}, "unknown option --pdf"},
        {{S("b.aff"), S("--png"), S("%d.png")}, "too many operands: b.aff"},
    };
    for (const auto& [arguments, error] : cases) {
        const CliResult result = Render(arguments);
        EXPECT_EQ(result.status, 2) << error;
        EXPECT_EQ(result.out, "") << error;
        EXPECT_THAT(result.err,
                    StartsWith(std::string("error: ") + error + "\nusage: sheetwright-cli render "));
    }
    EXPECT_EQ(Files(), QStringList(S("a.aff")));
}

TEST_F(CliRender, TheFormItselfIsNotOverwritten) {
    ASSERT_TRUE(QFile::rename(Path(S("a.aff")), Path(S("page2.png"))));
    const CliResult result = Run({S("render"), S("page2.png"), S("--png"), S("page%d.png")});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, StartsWith("error: \"page2.png\" is the form itself\n"));
    EXPECT_EQ(Files(), QStringList(S("page2.png")));
}

TEST_F(CliRender, APlaceThatCanNotBeWrittenIsAFailure) {
    QDir(Path(S("."))).mkdir(S("page2.png"));
    CliResult result = Render({S("--png"), S("page%d.png")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "page1.png\n") << "what was written before stays";
    EXPECT_EQ(result.err, "error: 75: Path/File access error (a.aff)\n");
    result = Render({S("--png"), S("nowhere/page%d.png")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: 76: Path not found (a.aff)\n");
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliRender, AFullDiskLeavesNoHalfImage) {
    QProcess process;
    Prepare(process, {S("render"), S("a.aff"), S("--png"), S("page%d.png"), S("--dpi"), S("300")},
            S("C.UTF-8"));
    process.setChildProcessModifier([] {
        const rlimit limit{2'000, RLIM_INFINITY};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    });
    process.start();
    const CliResult result = ResultOf(process);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("61"));
    EXPECT_EQ(Files(), QStringList(S("a.aff")));
}

TEST_F(CliRender, LinksPipesAndFormsInTheWay) {
    QFile::link(Path(S("circle.png")), Path(S("circle.png")));
    QFile::link(S("/dev/full"), Path(S("full.png")));
    ASSERT_EQ(::mkfifo(Path(S("pipe.png")).toLocal8Bit().constData(), 0600), 0);
    for (const char* target : {"circle.png", "full.png", "pipe.png"}) {
        const CliResult result = Render({S("--png"), S(target), S("--pages"), S("1")});
        EXPECT_EQ(result.status, 1) << target;
        EXPECT_EQ(result.err, "error: 75: Path/File access error (a.aff)\n") << target;
    }
    Write(S("out.png.new"), MixedForm());
    const CliResult result =
        Run({S("render"), S("out.png.new"), S("--png"), S("out.png"), S("--pages"), S("1")});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, StartsWith("error: \"out.png.new\" is the form itself\n"));
    EXPECT_EQ(Read(S("out.png.new")), MixedForm());
}

// What the decoder says by itself is not for the person.
TEST_F(CliRender, ADamagedPictureIsOneErrorAndNothingElse) {
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(Path(S("whole.png"))));
    const QByteArray whole = Read(S("whole.png"));
    const QByteArray huge = QByteArray(whole).replace(16, 8, QByteArray("\0\1\x86\xA0\0\1\x86\xA0", 8));
    for (const QByteArray& bytes :
         {QByteArray(), whole.first(1), whole.first(8), whole.first(33), huge, QByteArray("GIF89a"),
          QByteArray("BM"), QByteArray("\xFF\xD8\xFF"), QByteArray("PK\3\4")}) {
        WriteFormWith(bytes);
        const CliResult result = Render({S("--png"), S("out.png")});
        EXPECT_EQ(result.status, 1) << bytes.size();
        EXPECT_EQ(result.err, "error: 481: Invalid picture (a.aff)\n") << bytes.size();
    }
    EXPECT_FALSE(QFileInfo::exists(Path(S("out.png"))));
}

TEST_F(CliRender, APictureCutShortIsDrawnWithoutARemark) {
    for (const char* format : {"png", "jpg", "bmp"}) {
        QImage image(200, 200, QImage::Format_RGB32);
        uint noise = 1;
        for (int y = 0; y < 200; ++y)
            for (int x = 0; x < 200; ++x)
                image.setPixel(x, y, noise = noise * 1664525 + 1013904223);
        const QString name = S("picture.") + S(format);
        ASSERT_TRUE(image.save(Path(name)));
        WriteFormWith(Read(name).first(QFileInfo(Path(name)).size() / 2));
        const CliResult result = Render({S("--png"), S("out.png")});
        EXPECT_EQ(result.status, 0) << format;
        EXPECT_EQ(result.err, "") << format;
        EXPECT_TRUE(HasInk(Image("out.png"))) << format;
    }
}

TEST_F(CliRender, AMetafileIsDrawnAndLeavesNothingBehind) {
    MetafileBuilder metafile;
    WriteFormWith(metafile.Window(0, 0, 10, 10).Rectangle(0, 0, 10, 10).Plain());
    QProcess process;
    Prepare(process, {S("render"), S("a.aff"), S("--png"), S("out.png")}, S("C.UTF-8"));
    QProcessEnvironment environment = process.processEnvironment();
    environment.remove(S("XDG_RUNTIME_DIR"));
    process.setProcessEnvironment(environment);
    process.start();
    const CliResult result = ResultOf(process);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(HasInk(Image("out.png")));
    EXPECT_EQ(LeftOvers(), QStringList());
}

TEST_F(CliRender, FailuresOfTheFormAreTold) {
    Write(S("a.aff"),
          FormText().Page(S("Cover")).Field(S("A"), {S("FontSize=0")}).Data(1, {S("A=x")}).Bytes());
    CliResult result = Render({S("--png"), S("page%d.png")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: 380: Invalid property value (a.aff)\n");
    Write(S("a.aff"),
          FormText().Page(S("Cover")).Field(S("A"), {S("AbsTop=40000")}).Data(1, {S("A=x")}).Bytes());
    result = Render({S("--png"), S("page%d.png")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: 6: Overflow (a.aff)\n");
    EXPECT_EQ(Files(), QStringList(S("a.aff")));
}

TEST_F(CliRender, APageOnWhichNothingIsDrawnIsWhite) {
    Write(S("a.aff"), FormText().Page(S("Cover")).Field(S("A")).Bytes());
    EXPECT_EQ(Render({S("--png"), S("page.png")}).out, "page.png\n");
    EXPECT_EQ(Image("page.png").size(), QSize(794, 1123));
    EXPECT_FALSE(HasInk(Image("page.png")));
}

}  // namespace sheetwright

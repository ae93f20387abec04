#include "apps/cli/render.h"

#include "apps/cli/image_names.h"
#include "apps/cli/print_options.h"
#include "apps/cli/session.h"
#include "core/paths.h"
#include "print/fonts.h"
#include "print/paper_table.h"
#include "print/picture_surface.h"
#include "print/print_job.h"

#include <QBuffer>

namespace sheetwright::cli {

namespace {

constexpr int kLeastDpi = 10;
constexpr int kMostDpi = 1200;
constexpr int kScreenDpi = 96;

constexpr OptionSyntax kOptions[] = {{u"png", true}, {u"pages", true}, {u"dpi", true}};

constexpr QStringView kHelp =
    u"Draws data pages as images, as the print preview shows them, and prints the name of\n"
    u"each file. The form is drawn as it is stored: no formula is run.\n"
    u"\n"
    u"  --png PATTERN  the files' name, which ends in .png; %d in it becomes the page's\n"
    u"                 number, %03d that with at least 3 digits (1 to 9 are possible). One\n"
    u"                 page alone needs no %d\n"
    u"  --pages A-B    only these pages; also A, A- (to the end) and -B (from the start)\n"
    u"  --dpi N        pixels to the inch, 10 to 1200; without it 96\n";

int DotsPerInch(const CommandLine& line) {
    const std::optional<QString> text = line.Value(u"dpi");
    if (!text) return kScreenDpi;
    const std::optional<int> dots = WholeNumber(*text);
    if (dots && *dots >= kLeastDpi && *dots <= kMostDpi) return *dots;
    throw UsageError(QStringLiteral("--dpi wants %1 to %2, not \"%3\"")
                         .arg(QString::number(kLeastDpi), QString::number(kMostDpi), *text));
}

QByteArray PngOf(const QImage& image) {
    QBuffer buffer;
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
        throw Failure(failure::kOutOfMemory);
    return buffer.data();
}

QByteArray Drawn(Application& application, frmSheetwright& document, std::int16_t page, int dotsPerInch) {
    PictureSurface surface(FontsOf(application), PageWidthTwips(application), PageHeightTwips(application));
    PrintPages(document, surface, page, page);
    return PngOf(surface.Render(dotsPerInch));
}

// Looked at before anything is drawn, so that wrong usage writes nothing.
void CheckNames(const ImageNames& names, PageRange pages, const QString& form) {
    if (pages.last > pages.first && !names.IsNumbered())
        throw UsageError(QStringLiteral("--png wants a %d for the page's number"));
    for (int page = pages.first; page <= pages.last; ++page)
        RequireOtherThan(form, names.Of(page));
}

int RunRender(Session& session, const CommandLine& line) {
    const QString form = OnlyForm(line);
    const std::optional<QString> pattern = line.Value(u"png");
    if (!pattern) throw UsageError(QStringLiteral("--png is needed"));
    const ImageNames names(*pattern);
    const PageChoice choice(line);
    const int dotsPerInch = DotsPerInch(line);

    const auto document = session.OpenForm(form);
    const PageRange pages = choice.Of(document->Pages);
    CheckNames(names, pages, form);
    for (int page = pages.first; page <= pages.last; ++page) {
        const QString name = names.Of(page);
        WriteFileAtomically(name,
                            Drawn(session.App(), *document, static_cast<std::int16_t>(page), dotsPerInch));
        session.Out().Line(name);
    }
    session.WarnOfLostSteps();
    return status::kDone;
}

}  // namespace

Verb RenderVerb() {
    return {u"render", u"FORM --png PATTERN [--pages A-B] [--dpi N]", kHelp, kOptions, RunRender};
}

}  // namespace sheetwright::cli

#include "apps/cli/fill.h"

#include "apps/cli/fill_edits.h"
#include "apps/cli/print_options.h"
#include "apps/cli/session.h"
#include "core/paths.h"
#include "document/form_archive.h"
#include "document/form_writer.h"
#include "formula/recalculation.h"
#include "print/pdf_printer.h"
#include "print/print_job.h"

#include <memory>

namespace sheetwright::cli {

namespace {

constexpr OptionSyntax kOptions[] = {{u"set", true},     {u"add-page", true},       {u"import", true},
                                     {u"at-page", true}, {u"save", true},           {u"pdf", true},
                                     {u"pages", true},   {u"no-recalculate", false}};

constexpr QStringView kHelp =
    u"Sets values, adds pages and imports tables in the order given, recalculates the whole\n"
    u"form once, and saves or prints it, or both. When a page or name is unknown, or anything\n"
    u"else fails, nothing is written.\n"
    u"\n"
    u"  --set PAGE:NAME=VALUE   sets a field, check box or picture field of a data page; in\n"
    u"                          VALUE \\n is a line break, \\t a tab and \\\\ a backslash\n"
    u"  --add-page DESIGN[:MODE[:POSITION]]\n"
    u"                          adds an empty data page; DESIGN is the number or title of\n"
    u"                          a design page, MODE 0 at the start, 1 at the end, 2 before\n"
    u"                          or 3 after page POSITION; without MODE at the end\n"
    u"  --import CSV            fills the fields of a page, and further pages as they are\n"
    u"                          needed, with the records of an instrument's table; it lies\n"
    u"                          below the folder of its driver, one with a DRIVER.INF\n"
    u"  --at-page N             the data page at which the import before begins; without it\n"
    u"                          page 1\n"
    u"  --save OUT              saves to OUT (.aff or .aft), which may be FORM itself;\n"
    u"                          without it and --pdf only a summary is told\n"
    u"  --pdf OUT               prints the data pages to OUT (.pdf)\n"
    u"  --pages A-B             prints only these; also A, A- (to the end) and -B (from the\n"
    u"                          start)\n"
    u"  --no-recalculate        leaves all formulas alone; an import runs them nevertheless\n";

// What `--at-page` belongs to.
struct LastImport {
    ImportTable* table = nullptr;
    bool hasPage = false;
};

void SetPage(LastImport& last, const QString& page) {
    if (last.table == nullptr) throw UsageError(QStringLiteral("--at-page needs --import before it"));
    if (last.hasPage) throw UsageError(QStringLiteral("an --import has one --at-page"));
    last.table->page = PageNumber(page);
    last.hasPage = true;
}

std::vector<Edit> EditsOf(const CommandLine& line) {
    std::vector<Edit> edits;
    edits.reserve(line.options.size());  // what was found last stays where it is
    LastImport last;
    for (const Option& option : line.options) {
        if (option.name == QStringLiteral("set")) edits.emplace_back(ParseSetValue(option.value));
        if (option.name == QStringLiteral("add-page")) edits.emplace_back(ParseInsertPage(option.value));
        if (option.name == QStringLiteral("import"))
            last = {&std::get<ImportTable>(edits.emplace_back(ImportTable{option.value})), false};
        if (option.name == QStringLiteral("at-page")) SetPage(last, option.value);
    }
    return edits;
}

void RequireFormName(const QString& path) {
    const bool isForm = path.endsWith(QStringLiteral(".aff"), Qt::CaseInsensitive) ||
                        path.endsWith(QStringLiteral(".aft"), Qt::CaseInsensitive);
    if (!isForm) throw UsageError(QStringLiteral("a form's name ends in .aff or .aft, not \"%1\"").arg(path));
}

void PrintSummary(Output& out, const FormEditor::Counts& done, const frmSheetwright& document) {
    const auto print = [&](const QString& key, std::int64_t value) {
        out.Line(key + QStringLiteral(": ") + QString::number(value));
    };
    std::int64_t records = 0;
    for (const ImportResult& import : done.imports)
        records += import.records;
    print(QStringLiteral("values set"), done.valuesSet);
    print(QStringLiteral("pages added"), done.pagesAdded);
    if (!done.imports.empty()) print(QStringLiteral("records imported"), records);
    print(QStringLiteral("data pages"), document.Pages);
    out.Line(u"saved: no");
}

void PrintImports(Output& out, const FormEditor::Counts& done) {
    for (const ImportResult& import : done.imports)
        out.Line(ToldOf(import));
}

// Where the results go.
struct Targets {
    Targets(const CommandLine& line, const QString& form);

    std::optional<QString> form;
    std::optional<QString> pdf;
    PageChoice pages;
};

Targets::Targets(const CommandLine& line, const QString& source)
    : form(line.Value(u"save")), pdf(line.Value(u"pdf")), pages(line) {
    if (form) RequireFormName(*form);
    if (form) RequireOtherThan(source, *form + kUnfinishedFormSuffix.toString());
    if (!pdf && line.Has(u"pages")) throw UsageError(QStringLiteral("--pages needs --pdf"));
    if (!pdf) return;
    RequireEnding(*pdf, QStringLiteral(".pdf"));
    RequireOtherThan(source, *pdf);
    if (form) RequireOtherThan(*form, *pdf);
}

// Prints into a file beside the target, whole but not yet in place.
std::unique_ptr<PdfPrinter> Printed(frmSheetwright& document, const QString& target, PageRange pages) {
    auto printer =
        std::make_unique<PdfPrinter>(document.application, target, GetFileName(document.Tag, true));
    const OnlyPrinter only(document.application, *printer);
    PrintPages(document, *printer, pages.first, pages.last);
    if (printer->Complete() == 0) throw CommandError(QStringLiteral("nothing to print"));
    return printer;
}

void PutInPlace(Output& out, PdfPrinter& printer, const QString& target) {
    const int pages = printer.Finish();
    out.Line(QStringLiteral("printed %1 %2 to ")
                 .arg(QString::number(pages), pages == 1 ? QStringLiteral("page") : QStringLiteral("pages")) +
             target);
}

// The form is saved only when all of it could be printed, and what was printed appears only when the form is
// saved.
int PrintAndSave(Session& session, frmSheetwright& document, const Targets& targets, PageRange pages,
                 const FormEditor::Counts& done) {
    std::unique_ptr<PdfPrinter> printer;
    if (targets.pdf) {
        printer = Printed(document, *targets.pdf, pages);
        session.WarnOfLostSteps();
    }
    if (targets.form) {
        document.Tag = *targets.form;
        if (!SaveForm(document, Recalculate::No)) return status::kFailed;
    }
    PrintImports(session.Out(), done);
    if (targets.form) session.Out().Line(QStringLiteral("saved ") + *targets.form);
    if (printer) PutInPlace(session.Out(), *printer, *targets.pdf);
    return status::kDone;
}

int RunFill(Session& session, const CommandLine& line) {
    const QString path = OnlyForm(line);
    const Targets targets(line, path);
    const std::vector<Edit> edits = EditsOf(line);

    const auto document = session.OpenForm(path);
    FormEditor editor(*document);
    for (const Edit& edit : edits)
        std::visit([&](const auto& known) { editor.Apply(known); }, edit);
    const PageRange pages = targets.pages.Of(document->Pages);
    if (!line.Has(u"no-recalculate")) ÜberupdateFormulas(*document, false);

    if (targets.form || targets.pdf) return PrintAndSave(session, *document, targets, pages, editor.Done());
    PrintImports(session.Out(), editor.Done());
    PrintSummary(session.Out(), editor.Done(), *document);
    return status::kDone;
}

}  // namespace

Verb FillVerb() {
    return {u"fill",
            u"FORM [--set PAGE:NAME=VALUE]... [--add-page DESIGN[:MODE[:POSITION]]]... "
            u"[--import CSV [--at-page N]]... [--save OUT] [--pdf OUT [--pages A-B]] [--no-recalculate]",
            kHelp, kOptions, RunFill};
}

}  // namespace sheetwright::cli

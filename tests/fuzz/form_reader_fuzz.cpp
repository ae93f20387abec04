// Any bytes make a form or are refused with a failure. A form that was read is written and read again without
// a change to any line, and can be merged into itself.

#include "core/failure.h"
#include "document/form_writer.h"
#include "support/fuzz_workplace.h"

#include <QStringList>

#include <algorithm>
#include <cstdint>

using namespace sheetwright;

namespace {

class Workplace : public FuzzWorkplace {
  public:
    Workplace() {
        TheApplication().settings.Write(QStringLiteral("Tolvane Quillon Form Designer"),
                                        QStringLiteral("frmPrefs"), QStringLiteral("CompanyLogo"),
                                        Folder() + QStringLiteral("logo.bmp"));
        WriteFile(QStringLiteral("logo.bmp"), "BM");
    }
};

void AddLines(QStringList& lines, const PageLines& page) {
    for (int position = 1; position <= page.Count(); ++position)
        lines << page.Line(position).toString();
}

QStringList LinesOf(const MemoryBlock& memory) {
    QStringList lines;
    for (int number = 1; number <= memory.DesignPageCount(); ++number)
        AddLines(lines, memory.DesignPage(number));
    for (int number = 1; number <= memory.DataPageCount(); ++number)
        AddLines(lines, memory.DataPage(number));
    return lines;
}

// Tabs and blanks before a line are indentation to the next reader, and a field may bear the name of a
// header.
bool ReadsBackAsItIs(const QString& line) {
    const bool isIndented = line.startsWith(u'\t') || line.startsWith(u' ');
    const bool isNamedLikeAHeader = IsPageHeader(line) && line.endsWith(u'=');
    return !isIndented && !isNamedLikeAHeader;
}

void RequireSameAfterWriting(Workplace& workplace, ReadDocument& document) {
    const QStringList lines = LinesOf(document.memory);
    if (!std::all_of(lines.begin(), lines.end(), ReadsBackAsItIs)) return;
    WriteFormFile(document, Recalculate::No);
    const ReadDocument again(workplace);
    Require(LinesOf(again.memory) == lines);
}

void RequireLookupsHold(const ReadDocument& document) {
    const MemoryBlock& memory = document.memory;
    for (int number = 1; number <= std::min<int>(memory.DataPageCount(), 50); ++number) {
        const PageLines& page = memory.DataPage(number);
        for (int position = 1; position <= std::min(page.Count(), 50); ++position) {
            const QString line = page.Line(position).toString();
            const qsizetype equals = line.indexOf(u'=');
            const int found = page.Find(equals < 0 ? QString() : line.first(equals));
            Require(found > 0 && found <= position);
        }
    }
    (void)memory.PagesOf(1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Workplace workplace;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    workplace.WriteFile(QStringLiteral("form.aff"), bytes);
    Ignoring([&] {
        ReadDocument document(workplace);
        RequireLookupsHold(document);
        Ignoring([&] { ReadFormFile(document); });
        if (document.Pages > 0) Ignoring([&] { document.memory.InsertDataPage(1, 1); });
    });
    // Writing flushes to the disk, which is slow: a quarter of the inputs tells enough.
    if (qChecksum(bytes) % 4 != 0) return 0;
    Ignoring([&] {
        ReadDocument document(workplace);
        RequireSameAfterWriting(workplace, document);
    });
    return 0;
}

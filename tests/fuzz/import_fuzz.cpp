// Any table is poured into any form whose fields take columns of it, until the person stops. The form is then
// as it was, or whole with its new pages.
//
// An input is the form, a line "---", the table, and perhaps another "---" and the table's types. The form is
// a line for each element: "f" or "c" (a check box), line, key level, triggers (P, p, L, l: page and line,
// when a value reoccurs or changes; @ for a list) and data source, separated by "|". "=" begins another
// design, and what follows a ">" stands in "linkedpages.txt". What is cut off has a default, so that most
// inputs import something.

#include "core/failure.h"
#include "core/folders.h"
#include "document/page.h"
#include "document/page_data.h"
#include "fields/editing.h"
#include "import/import.h"
#include "support/form_text.h"
#include "support/fuzz_drawing_place.h"
#include "support/page_window.h"

#include <QDir>
#include <QFile>

#include <cstdint>

using namespace sheetwright;

namespace {

constexpr int kMostElements = 12;
constexpr int kQuestions = 12;
constexpr char kTable[] = "A,B,K,V\n1,2,3,4\n1,,x,4\n2,2,3,\n";
constexpr char kEnd[] = "\n---\n";

class ImportPlace : public FuzzDrawingPlace {
  public:
    ImportPlace() {
        for (const char* folder : {"DRIVERS/meter/Data", "LISTS"})
            Require(QDir(Folder()).mkpath(QString::fromLatin1(folder)));
        WriteFile(QStringLiteral("DRIVERS/meter/DRIVER.INF"), {});
        WriteFile(QStringLiteral("LISTS/town.csv"), "Code,Name\r\n1,Kendal\r\na,\r\n");
        SetListFolder(TheApplication(), Folder());
        TheInterface().isStopping = true;
    }
    // Files of the run before are gone.
    void Prepare(const QByteArray& form, const QByteArray& links, const QByteArray& table,
                 const QByteArray& types) {
        QDir folder(Folder());
        for (const QString& name : folder.entryList({QStringLiteral("import*.csv")}))
            folder.remove(name);
        folder.remove(QStringLiteral("linkedpages.txt"));
        WriteFile(QStringLiteral("form.aff"), form);
        if (!links.isEmpty()) WriteFile(QStringLiteral("linkedpages.txt"), links);
        WriteFile(QStringLiteral("DRIVERS/meter/Data/table.csv"), table);
        WriteFile(QStringLiteral("DRIVERS/meter/Data/table.inf"), types);
        TheInterface().questions = kQuestions;
    }
};

struct Part {
    QByteArray text;
    QByteArray rest;
};

Part PartOf(const QByteArray& bytes) {
    const qsizetype end = bytes.indexOf(kEnd);
    if (end < 0) return {bytes, {}};
    return {bytes.first(end), bytes.sliced(end + qsizetype{sizeof kEnd} - 1)};
}

struct Design {
    FormText form;
    QByteArray links;
    int pages = 1;
    int elements = 0;
};

void AddElement(Design& design, const QList<QByteArray>& words) {
    const QByteArray triggers = words.value(3);
    QStringList changes{QStringLiteral("MultiRecordIndex=") + QString::fromLatin1(words.value(1)),
                        QStringLiteral("KeyLevel=") + QString::fromLatin1(words.value(2)),
                        QStringLiteral("DataSource=") + QString::fromUtf8(words.last())};
    const auto add = [&](char letter, const char* line) {
        if (triggers.contains(letter)) changes << QString::fromLatin1(line);
    };
    add('P', "NewPageOnReoccur=True");
    add('p', "NewPageOnChange=True");
    add('L', "NewLineOnReoccur=True");
    add('l', "NewLineOnChange=True");
    add('@', "List=@LISTS\\town,Code");
    const QString name = QStringLiteral("e%1").arg(++design.elements);
    if (words.first() == "c") {
        design.form.CheckBox(name, changes);
    } else {
        design.form.Field(name, changes);
    }
}

void AddLine(Design& design, const QByteArray& line) {
    const QList<QByteArray> words = line.split('|');
    if (line == "=") {
        design.form.Page(QStringLiteral("Sheet %1").arg(++design.pages));
    } else if (line.startsWith('>')) {
        design.links += line.sliced(1) + '\n';
    } else if (design.elements < kMostElements && words.size() > 1) {
        AddElement(design, words);
    }
}

QStringList LinesOf(const frmSheetwright& document) {
    QStringList lines;
    for (int page = 1; page <= document.memory.DataPageCount(); ++page)
        for (int line = 1; line <= document.memory.DataPage(page).Count(); ++line)
            lines << document.memory.DataPage(page).Line(line).toString();
    return lines;
}

void Pour(frmSheetwright& document, const QString& table) {
    Ignoring([&] { LoadPage(document); });
    const QStringList before = LinesOf(document);
    Ignoring([&] {
        const ImportResult result = Import(document, table);
        Require(!result.isStopped || LinesOf(document) == before);
    });
    RecoverFromFailedPass(document);
    Require(document.Busy == 0 && !document.Importing);
    Require(document.Pages == document.memory.DataPageCount() && document.DataPageNum <= document.Pages);
    Ignoring([&] { SavePage(document); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzGuiApplication();
    static ImportPlace place;
    const Part form = PartOf({reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)});
    const Part table = PartOf(form.rest);
    Design design;
    design.form.Page(QStringLiteral("Sheet 1"));
    for (const QByteArray& line : form.text.split('\n'))
        AddLine(design, line);
    design.form.Data(1, {});
    place.Prepare(design.form.Bytes(), design.links, table.text.isEmpty() ? kTable : table.text, table.rest);
    RecordingWindow window;
    Ignoring([&] {
        ReadDocument document(place);
        document.window = &window;
        UsePageOnScreen(document);
        ConnectEntry(document);
        Pour(document, place.Folder() + QStringLiteral("DRIVERS/meter/Data/table.csv"));
    });
    place.ForgetLog();
    return 0;
}

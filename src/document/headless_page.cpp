#include "document/headless_page.h"

#include "core/application.h"
#include "core/failure.h"
#include "document/design_records.h"
#include "document/design_walk.h"
#include "document/document.h"
#include "document/page.h"

namespace sheetwright {

namespace {

using Bag = std::shared_ptr<PropertyBag>;

void AddRecord(frmSheetwright& document, QStringView kind, const Bag& bag) {
    Page& page = *document.page;
    if (kind == u"CHEC") page.CheckProperties.push_back(bag);
    if (kind != u"FIEL") return;
    const bool isTextField = FieldRecord(document.application, *bag).ShowsText();
    (isTextField ? page.FieldProperties : page.BitmapProperties).push_back(bag);
}

void ClearRecords(frmSheetwright& document) {
    document.page->FieldProperties.clear();
    document.page->CheckProperties.clear();
    document.page->BitmapProperties.clear();
}

// The records of the design's elements. A key that stands twice keeps its first value.
void BuildRecords(frmSheetwright& document) {
    const PageLines& design = document.memory.DesignPage(document.PageNum);
    Bag bag = std::make_shared<PropertyBag>();
    for (int position = 1; position <= design.Count(); ++position) {
        const DesignLine line = CutDesignLine(design.Line(position));
        if (line.type == DesignLine::Type::Begin) {
            bag = std::make_shared<PropertyBag>();
        } else if (line.type == DesignLine::Type::End) {
            AddRecord(document, line.kind, bag);
            bag = std::make_shared<PropertyBag>();
        } else if (line.type == DesignLine::Type::Key && !bag->Contains(line.key)) {
            bag->Add(line.value.toString(), line.key.toString());
        }
    }
}

void LoadHeadlessPage(frmSheetwright& document) {
    document.Pages = document.memory.DataPageCount();
    if (document.DataPageNum < 1 || document.DataPageNum > document.Pages) return;
    std::int16_t design = 0;
    Ignoring([&] { design = document.memory.WhichDesign(document.DataPageNum); });
    if (design == document.PageNum) return;
    ClearRecords(document);
    const bool isThere = design >= 1 && design <= document.memory.DesignPageCount();
    document.PageNum = isThere ? design : std::int16_t{0};
    if (isThere) BuildRecords(document);
}

bool HasValueLine(const PageLines& page) {
    for (int position = 1; position <= page.Count(); ++position) {
        const QStringView line = page.Line(position);
        if (!IsPageHeader(line) && !line.startsWith(u"END PAGE")) return true;
    }
    return false;
}

// A page that holds no value line shows empty fields and check boxes in state 0, and is saved so. Any other
// page keeps its lines as they are, also those for which the design has no element.
void SaveHeadlessPage(frmSheetwright& document) {
    const int number = document.DataPageNum;
    if (document.PageNum < 1 || number < 1 || number > document.memory.DataPageCount()) return;
    if (document.memory.DataPage(number).IsEmpty() || HasValueLine(document.memory.DataPage(number))) return;
    if (document.memory.WhichDesign(number) != document.PageNum) return;

    document.memory.ClearDataPage(number);
    document.memory.AppendDataLine(
        number, QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(number).arg(document.PageNum));
    const auto append = [&](const ElementBags& bags, const QString& value) {
        for (const Bag& bag : bags)
            if (const QString* const name = bag->Find(u"Name"))
                document.memory.AppendDataLine(number, *name + u'=' + value);
    };
    append(document.page->FieldProperties, QString());
    append(document.page->CheckProperties, QStringLiteral("0"));
    append(document.page->BitmapProperties, QStringLiteral("0"));
    document.memory.AppendDataLine(number, QStringLiteral("END PAGE"));
}

}  // namespace

void UseHeadlessPage(frmSheetwright& document) {
    document.PageNum = 0;
    document.LoadPageHook = [&document] { LoadHeadlessPage(document); };
    document.SavePageHook = [&document] { SaveHeadlessPage(document); };
}

}  // namespace sheetwright

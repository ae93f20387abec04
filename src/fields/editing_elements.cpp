#include "fields/editing_elements.h"

#include "core/application.h"
#include "document/document.h"
#include "document/page.h"

namespace sheetwright {

namespace {

std::shared_ptr<const PropertyBag> RecordAt(const ElementBags& records, int number) {
    const bool isThere = number >= 1 && static_cast<std::size_t>(number) <= records.size();
    return isThere ? records[static_cast<std::size_t>(number) - 1] : nullptr;
}

template <typename Element>
auto* ElementAt(ElementArray<Element>& elements, int number) {
    return number >= 1 && number <= elements.Count() ? &elements.At(number) : nullptr;
}

bool IsReadOnly(const frmSheetwright& document, const PropertyBag& record) {
    bool isReadOnly = false;
    if (record.Contains(u"ReadOnly"))
        Ignoring([&] { isReadOnly = FieldRecord(document.application, record).ReadOnly(); });
    return isReadOnly;
}

bool CanBeShown(Page& page, ElementRef element) {
    if (element.kind == ElementKind::Entry) {
        const TextElement* const entry = ElementAt(page.Entries, element.number);
        return entry != nullptr && entry->isVisible;
    }
    const FieldElement* const field = FieldOf(page, element);
    return field != nullptr && field->isVisible && field->control != nullptr && field->control->Enabled();
}

}  // namespace

bool IsLocked(const frmSheetwright& document) {
    return document.application.ViewerMode || document.MyReadonly;
}

ElementRef ElementOf(const PropertyBag& record) {
    const QString* const key = record.Find(u"Key");
    if (key == nullptr) return {};
    if (key->startsWith(u'C')) return {ElementKind::Check, key->sliced(1).toInt()};
    if (key->startsWith(u'B')) return {ElementKind::Bitmap, key->sliced(1).toInt()};
    return {ElementKind::Entry, key->toInt()};
}

std::shared_ptr<const PropertyBag> RecordOf(const Page& page, ElementRef element) {
    switch (element.kind) {
        case ElementKind::Entry:
            return RecordAt(page.FieldProperties, element.number);
        case ElementKind::Check:
            return RecordAt(page.CheckProperties, element.number);
        case ElementKind::Bitmap:
            return RecordAt(page.BitmapProperties, element.number);
        case ElementKind::None:
            break;
    }
    return nullptr;
}

FieldElement* FieldOf(Page& page, ElementRef element) {
    if (element.kind == ElementKind::Check) return ElementAt(page.Checks, element.number);
    if (element.kind == ElementKind::Bitmap) return ElementAt(page.Bitmaps, element.number);
    return nullptr;
}

bool CanBeEntered(const frmSheetwright& document, ElementRef element) {
    const std::shared_ptr<const PropertyBag> record = RecordOf(*document.page, element);
    return record != nullptr && CanBeShown(*document.page, element) && !IsReadOnly(document, *record);
}

void MarkChanged(frmSheetwright& document) {
    document.Changed = true;
    document.PageChanged = true;
}

}  // namespace sheetwright

#include "fields/editing_entry.h"

#include "core/application.h"
#include "core/failure.h"
#include "document/document.h"
#include "document/page.h"
#include "fields/editing.h"
#include "fields/editing_colours.h"
#include "fields/editing_elements.h"

namespace sheetwright {

namespace {

template <typename Change>
void ChangeFont(usrEntry& entry, Change change) {
    FontSpec font = entry.Font();
    change(font);
    entry.SetFont(font);
}

using CopyStep = void (*)(usrEntry&, const FieldRecord&);

// Each may fail by itself.
constexpr CopyStep kCopySteps[] = {
    [](usrEntry& entry, const FieldRecord& field) { entry.SetBorderStyle(field.Byte(u"BorderStyle")); },
    [](usrEntry& entry, const FieldRecord& field) { entry.SetAttachedList(field.List()); },
    [](usrEntry& entry, const FieldRecord& field) { entry.design.DataSource = field.DataSource(); },
    [](usrEntry& entry, const FieldRecord& field) {
        ChangeFont(entry, [&](FontSpec& font) { font.bold = field.Boolean(u"FontBold"); });
    },
    [](usrEntry& entry, const FieldRecord& field) {
        ChangeFont(entry, [&](FontSpec& font) { font.italic = field.Boolean(u"FontItalic"); });
    },
    [](usrEntry& entry, const FieldRecord& field) {
        ChangeFont(entry, [&](FontSpec& font) { font.family = field.FontName(); });
    },
    [](usrEntry& entry, const FieldRecord& field) {
        ChangeFont(entry, [&](FontSpec& font) { font.size = field.FontSize(); });
    },
    [](usrEntry& entry, const FieldRecord& field) {
        ChangeFont(entry, [&](FontSpec& font) { font.strikethru = field.Boolean(u"FontStrikethru"); });
    },
    [](usrEntry& entry, const FieldRecord& field) {
        ChangeFont(entry, [&](FontSpec& font) { font.underline = field.Boolean(u"FontUnderline"); });
    },
    [](usrEntry& entry, const FieldRecord& field) { entry.SetForeColor(field.ForeColor()); },
    [](usrEntry& entry, const FieldRecord& field) { entry.design.Format = field.Format(); },
    [](usrEntry& entry, const FieldRecord& field) { entry.design.Idx = field.Name(); },
    [](usrEntry& entry, const FieldRecord& field) { entry.design.KeyLevel = field.KeyLevel(); },
    [](usrEntry& entry, const FieldRecord& field) {
        entry.design.MultiRecordIndex = field.MultiRecordIndex();
    },
    [](usrEntry& entry, const FieldRecord& field) { entry.design.NewLineOnChange = field.NewLineOnChange(); },
    [](usrEntry& entry, const FieldRecord& field) {
        entry.design.NewLineOnReoccur = field.NewLineOnReoccur();
    },
    [](usrEntry& entry, const FieldRecord& field) { entry.design.NewPageOnChange = field.NewPageOnChange(); },
    [](usrEntry& entry, const FieldRecord& field) {
        entry.design.NewPageOnReoccur = field.NewPageOnReoccur();
    },
    [](usrEntry& entry, const FieldRecord& field) { entry.design.TabIdx = field.Int16(u"TabIdx"); },
    [](usrEntry& entry, const FieldRecord& field) { entry.SetWordWrap(field.WordWrap()); },
};

// What stands where a key is missing: the looks of the element, nothing of the field before.
void TakeDefaults(usrEntry& entry, const TextElement& element) {
    entry.design = {};
    entry.Clear();
    entry.ReleaseList();
    entry.SetAttachedList({});
    entry.SetBorderStyle(1);
    entry.SetFont(element.font);
    entry.SetForeColor(element.foreColor);
    entry.SetWordWrap(false);
    entry.SetAlignment(element.alignment);
}

double FieldTypeOf(const FieldRecord& field) {
    double type = 0;
    Ignoring([&] { type = field.Number(u"FieldType"); });
    return type;
}

void SetStyleAndValue(usrEntry& entry, double fieldType, const QString& text) {
    const auto setStyle = [&](std::uint8_t style) {
        entry.SetFieldType(style);
        entry.SetValue(text);
    };
    if (!entry.AttachedList().isEmpty()) return setStyle(field_type::kCombo);
    if (fieldType == 0) return setStyle(field_type::kText);
    if (fieldType == 1) return setStyle(field_type::kPicture);
    entry.SetValue(text);
    entry.SetFieldType(field_type::kDate);
}

void SelectText(usrEntry& entry) {
    entry.SetSelStart(0);
    entry.SetSelLength(entry.Value().size());
}

}  // namespace

void OpenEntry(frmSheetwright& document, int number) {
    Page& page = *document.page;
    usrEntry& entry = page.Entry;
    const TextElement& element = page.Entries.At(number);
    const std::shared_ptr<const PropertyBag> record = RecordOf(page, {ElementKind::Entry, number});
    if (record == nullptr) return;
    const FieldRecord field(document.application, *record);

    TakeDefaults(entry, element);
    for (const CopyStep step : kCopySteps)
        Ignoring([&] { step(entry, field); });
    document.EntryList = entry.ListTable();
    ColourEntry(document);

    page.entryPlace = element.place;
    Ignoring([&] { page.entryPlace = field.Place(); });
    SetStyleAndValue(entry, FieldTypeOf(field), element.text);
    entry.Resize(page.entryPlace.width, page.entryPlace.height);  // by the style in force
    page.entryPlace.height = entry.Height();
    SelectText(entry);
    page.isEntryVisible = true;
    document.window->ShowEntry();
}

void CloseEntry(frmSheetwright& document) {
    Page& page = *document.page;
    page.Entry.Clear();
    page.isEntryVisible = false;
    document.EntryList = nullptr;
    page.Entry.ReleaseList();
    document.window->HideEntry();
    HighlightBlanks(document);
}

}  // namespace sheetwright

#include "fields/editing.h"

#include "core/application.h"
#include "core/failure.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "document/page.h"
#include "fields/editing_colours.h"
#include "fields/editing_elements.h"
#include "fields/editing_entry.h"
#include "fields/editing_text.h"
#include "fields/maintainable_lists.h"
#include "fields/navigation.h"

#include <utility>

namespace sheetwright {

namespace {

bool IsDragging(const Page& page) {
    return page.drag.mode != 0;
}

// The field keeps the text that it had.
void DropEdit(frmSheetwright& document) {
    document.page->CurrentEntry = {};
    CloseEntry(document);
    document.window->FocusPage();
}

// One key blanks a date, and the person goes on to the next field.
void BlankDate(frmSheetwright& document) {
    const ElementRef date = std::exchange(document.page->CurrentEntry, {});
    PutText(document, date.number, {});
    CloseEntry(document);
    MoveFocus(document, date, TabDirection::Forward);
}

void Entry_KeyPress(frmSheetwright& document, std::int16_t& KeyAscii) {
    const Page& page = *document.page;
    if (page.CurrentEntry.kind != ElementKind::Entry) return;
    if (KeyAscii == key::kEscape) {
        KeyAscii = 0;
        DropEdit(document);
    } else if (KeyAscii == key::kBackspace && page.Entry.FieldType() == field_type::kDate) {
        KeyAscii = 0;
        BlankDate(document);
    }
}

void LeaveText(frmSheetwright& document, ElementRef element) {
    const QString text = document.page->Entry.Value();
    const QString mask = document.page->Entry.design.Format;
    TakeText(document, element, text, mask);
    CloseEntry(document);
}

void LeaveField(frmSheetwright& document, ElementRef element, ElementRef argument) {
    RestoreColours(document, element);
    if (argument.IsNone()) Ignoring([&] { document.window->FocusPage(); });
    MarkChanged(document);
}

// A person works the check box or picture field that has the focus. The file dialog of a picture lets
// messages run.
template <typename Step>
void Work(frmSheetwright& document, ElementRef element, Step step) {
    FocusField(document, element);
    const FieldElement* const field = FieldOf(*document.page, element);
    if (IsLocked(document) || field == nullptr || document.page->CurrentEntry != element) return;
    const BusyDocument busy(document.Busy);
    usrEntry& control = *field->control;
    const QString before = control.Value();
    step(control);
    if (element.kind == ElementKind::Check || control.Value() != before) MarkChanged(document);
    document.window->ElementChanged(element);
}

}  // namespace

void ConnectEntry(frmSheetwright& document) {
    usrEntry& entry = document.page->Entry;
    entry.KeyDown = [](std::int16_t& KeyCode, std::int16_t) {
        if (KeyCode == key::kPageUp || KeyCode == key::kPageDown) KeyCode = 0;
    };
    entry.KeyPress = [&document](std::int16_t& KeyAscii) { Entry_KeyPress(document, KeyAscii); };
    entry.Click = [&document] { FillFromList(document); };
}

void Entries_GotFocus(frmSheetwright& document, int number) {
    Page& page = *document.page;
    const ElementRef element{ElementKind::Entry, number};
    if (IsLocked(document) || IsDragging(page) || RecordOf(page, element) == nullptr) return;
    if (page.CurrentEntry == element) return document.window->ShowEntry();
    Unselect(document, element);
    if (!CanBeEntered(document, element)) return MoveFocus(document, element, TabDirection::Forward);
    OpenEntry(document, number);
    page.CurrentEntry = element;  // last: what the window calls back meanwhile finds nothing being edited
}

void FocusField(frmSheetwright& document, ElementRef element) {
    Page& page = *document.page;
    if (IsLocked(document) || IsDragging(page) || FieldOf(page, element) == nullptr) return;
    if (page.CurrentEntry == element) return document.window->FocusElement(element);
    if (!CanBeEntered(document, element)) return;
    Unselect(document, element);
    ColourSelected(document, element);
    document.window->FocusElement(element);
    page.CurrentEntry = element;
}

void Unselect(frmSheetwright& document, ElementRef argument) {
    const ElementRef left = std::exchange(document.page->CurrentEntry, {});
    if (left.IsNone()) return;
    if (left.kind == ElementKind::Entry) {
        LeaveText(document, left);
    } else {
        LeaveField(document, left, argument);
    }
}

void Checks_Click(frmSheetwright& document, int number) {
    Work(document, {ElementKind::Check, number}, [](usrEntry& check) { check.ReportClick(); });
}

void Fields_KeyPress(frmSheetwright& document, ElementRef element, std::int16_t KeyAscii) {
    if (KeyAscii != key::kSpace) return;
    Work(document, element, [](usrEntry& control) { control.ReportKeyPress(key::kSpace); });
}

void Bitmaps_Click(frmSheetwright& document, int number) {
    FocusField(document, {ElementKind::Bitmap, number});
}

void Bitmaps_DblClick(frmSheetwright& document, int number) {
    Work(document, {ElementKind::Bitmap, number}, [](usrEntry& picture) { picture.ReportDoubleClick(); });
}

}  // namespace sheetwright

#include "fields/dragging.h"

#include "core/application.h"
#include "document/document.h"
#include "document/page.h"
#include "document/undo.h"
#include "fields/editing.h"
#include "fields/editing_elements.h"
#include "fields/editing_text.h"
#include "fields/navigation.h"

#include <cmath>
#include <utility>

namespace sheetwright {

namespace {

constexpr std::int16_t kLeftButton = 1;
constexpr double kDragDistance = 120;  // twips
constexpr int kMove = 1;
constexpr int kCopy = 2;

bool IsFarEnough(const Page::Drag& drag, double x, double y) {
    return std::abs(x - drag.x) >= kDragDistance || std::abs(y - drag.y) >= kDragDistance;
}

void BeginDrag(frmSheetwright& document, int mode) {
    document.page->drag.mode = mode;  // from here on no element takes the focus
    Unselect(document);
    document.window->BeginDrag(mode);
}

bool IsTextElement(const Page& page, int number) {
    return number >= 1 && number <= page.Entries.Count();
}

// What nobody can type into is no place to drop on either: it may be a verdict. Its own value can be taken
// from it, but stays.
void Drop(frmSheetwright& document, int source, int target, int mode) {
    const ElementRef element{ElementKind::Entry, target};
    if (!CanBeEntered(document, element)) return;
    const bool emptiesSource = mode == kMove && CanBeEntered(document, {ElementKind::Entry, source});
    SetUndo(document);
    const QString text = document.page->Entries.At(source).text;
    const std::shared_ptr<const PropertyBag> record = RecordOf(*document.page, element);
    const QString mask = record == nullptr ? QString() : FieldRecord(document.application, *record).Format();
    TakeText(document, element, text, mask);
    if (emptiesSource) PutText(document, source, {});
    MarkChanged(document);
}

}  // namespace

void Entries_MouseDown(frmSheetwright& document, int number, std::int16_t, double x, double y) {
    document.page->drag = {.source = number, .x = x, .y = y};
}

void Entries_MouseMove(frmSheetwright& document, std::int16_t Button, std::int16_t Shift, double x,
                       double y) {
    const Page::Drag& drag = document.page->drag;
    if (IsLocked(document) || drag.mode != 0 || !IsTextElement(*document.page, drag.source)) return;
    if ((Button & kLeftButton) == 0 || !IsFarEnough(drag, x, y)) return;
    BeginDrag(document, (Shift & key::kCtrlMask) != 0 ? kCopy : kMove);
}

void Entries_DragDrop(frmSheetwright& document, int target) {
    const Page& page = *document.page;
    const Page::Drag drag = page.drag;
    CancelDrag(document);
    if (drag.mode == 0 || IsLocked(document) || target == drag.source) return;
    if (IsTextElement(page, drag.source) && IsTextElement(page, target))
        Drop(document, drag.source, target, drag.mode);
}

void CancelDrag(frmSheetwright& document) {
    const Page::Drag drag = std::exchange(document.page->drag, {});
    if (drag.mode != 0) document.window->EndDrag();
}

}  // namespace sheetwright

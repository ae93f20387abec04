#include "fields/navigation.h"

#include "core/application.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "document/page.h"
#include "document/page_moves.h"
#include "document/page_view_layout.h"
#include "fields/dragging.h"
#include "fields/editing.h"
#include "fields/editing_elements.h"
#include "formula/value_conversion.h"

#include <algorithm>
#include <vector>

namespace sheetwright {

namespace {

using Record = std::shared_ptr<PropertyBag>;

struct TabStop {
    double place;
    QString key;
    Record record;
};

// Position of an element in `TabOrders`, from 1; 0 when it has none.
int PositionOf(const Page& page, ElementRef element) {
    const std::shared_ptr<const PropertyBag> record = RecordOf(page, element);
    const QString* const tabIndex = record == nullptr ? nullptr : record->Find(u"TabIdx");
    const Record* const placed = tabIndex == nullptr ? nullptr : page.TabOrders.Find(*tabIndex);
    if (placed == nullptr) return 0;
    const auto& stops = page.TabOrders.Entries();
    const auto found =
        std::find_if(stops.begin(), stops.end(), [&](const auto& stop) { return stop.item == *placed; });
    return static_cast<int>(found - stops.begin()) + 1;
}

// The next element that can be entered, once around the page: the last that is looked at is the one at
// `position` itself. None when there is none.
ElementRef NextElement(const frmSheetwright& document, int position, TabDirection direction) {
    const auto& stops = document.page->TabOrders.Entries();
    const int count = static_cast<int>(stops.size());
    const bool isForward = direction == TabDirection::Forward;
    const int start = isForward || position > 0 ? position : count + 1;
    for (int step = 1; step <= count; ++step) {
        const int index = (isForward ? start + step - 1 : start - step - 1 + count) % count;
        const ElementRef element = ElementOf(*stops[static_cast<std::size_t>(index)].item);
        if (CanBeEntered(document, element)) return element;
    }
    return {};
}

void GoTo(frmSheetwright& document, ElementRef element) {
    Unselect(document, element);
    if (element.kind == ElementKind::Entry) {
        Entries_GotFocus(document, element.number);
    } else {
        FocusField(document, element);
    }
    AutoScroll(document);
}

void PageDown(frmSheetwright& document) {
    if (document.DataPageNum < document.Pages) return ChangePage(document, u"down");
    if (!IsLocked(document)) document.application.mainWindow->ShowAddPage(document);
}

}  // namespace

void SortTabOrders(Page& page, const Conventions& conventions) {
    std::vector<TabStop> stops;
    stops.reserve(static_cast<std::size_t>(page.TabOrders.Count()));
    for (const ElementIndex::Entry& stop : page.TabOrders.Entries())
        stops.push_back({ToNumber(stop.key, conventions), stop.key, stop.item});
    std::stable_sort(stops.begin(), stops.end(),
                     [](const TabStop& one, const TabStop& other) { return one.place < other.place; });
    page.TabOrders.Clear();
    for (TabStop& stop : stops)
        page.TabOrders.Add(std::move(stop.record), stop.key);
}

void MoveFocus(frmSheetwright& document, ElementRef from, TabDirection direction) {
    if (IsLocked(document)) return Unselect(document);  // of what was entered before it was locked
    if (document.page->drag.mode != 0) return;
    const ElementRef next = NextElement(document, PositionOf(*document.page, from), direction);
    if (!next.IsNone()) GoTo(document, next);
}

void Form_KeyDown(frmSheetwright& document, std::int16_t& KeyCode, std::int16_t Shift) {
    const Page& page = *document.page;
    if (KeyCode == key::kEscape && page.drag.mode != 0) {
        KeyCode = 0;
        return CancelDrag(document);
    }
    const bool movesFocus = KeyCode == key::kTab || KeyCode == key::kEnter;
    if (!movesFocus || (Shift & key::kCtrlMask) != 0 || page.TabOrders.IsEmpty()) return;
    KeyCode = 0;
    const bool isBack = (Shift & key::kShiftMask) != 0;
    MoveFocus(document, page.CurrentEntry, isBack ? TabDirection::Backward : TabDirection::Forward);
}

void Form_KeyUp(frmSheetwright& document, std::int16_t KeyCode, std::int16_t) {
    if (KeyCode != key::kPageUp && KeyCode != key::kPageDown) return;
    if (!document.application.mainWindow->IsEnabled()) return;
    const BusyDocument busy(document.Busy);
    const std::int16_t pageBefore = document.DataPageNum;
    const std::int16_t pagesBefore = document.Pages;
    CancelDrag(document);
    if (KeyCode == key::kPageUp) {
        ChangePage(document, u"up");
    } else {
        PageDown(document);
    }
    if (document.DataPageNum != pageBefore || document.Pages != pagesBefore) SimulateTab(document);
}

void SimulateTab(frmSheetwright& document) {
    std::int16_t tab = key::kTab;
    Form_KeyDown(document, tab, 0);
}

void GPFFix(frmSheetwright& document) {
    document.application.mainWindow->SetEnabled(true);
    document.window->FocusContainer();
    document.application.ui.PumpMessages();
}

}  // namespace sheetwright

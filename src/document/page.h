#pragma once

// The page on screen: a light projection of one data page. What is fixed is painted once (`picForm` of the
// form's surfaces); what holds data is an element here; one editor, `Entry`, moves over the text elements. No
// element has a window. Records stay the owners of their elements' design properties.

#include "core/keyed_collection.h"
#include "document/design_records.h"
#include "document/element_array.h"
#include "fields/usr_entry.h"
#include "print/font_spec.h"
#include "print/picture_fit.h"
#include "print/recording.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace sheetwright {

class Application;
class PictureCache;

// A text field as the page shows it.
struct TextElement {
    QString text;
    Extent place;  // twips on the page
    FontSpec font{QStringLiteral("Arial")};
    Colour foreColor = 0;
    Colour backColor = 0xFFFFFF;
    std::int16_t alignment = 0;  // 1 right, 2 centre, anything else left
    bool wraps = false;
    bool isTransparent = false;  // a read-only one shows the page behind it
    bool hasBorder = false;
    bool isVisible = true;
};

// A check box or a picture field as the page shows it.
struct FieldElement {
    std::unique_ptr<usrEntry> control;
    Extent place;  // twips on the page
    bool isVisible = true;
};

// In screen pixels of the unzoomed page.
struct ScrollBar {
    int value = 0;  // 0 to max
    int max = 0;
    int smallChange = 10;
    int largeChange = 0;
    bool isVisible = false;
};

using ElementBags = std::vector<std::shared_ptr<PropertyBag>>;
using ElementIndex = KeyedCollection<std::shared_ptr<PropertyBag>>;

struct Page {
    Page(Application& application, PictureCache& pictures) : Entry(application, pictures) {}

    // Keys of the elements of the design on screen, in record order: those of element n stand at n - 1. Empty
    // while no page is built.
    ElementBags FieldProperties;
    ElementBags CheckProperties;
    ElementBags BitmapProperties;
    // The same collections by their `Name` and by their `TabIdx`. Each has the added key "Key": "3", "C3",
    // "B3".
    ElementIndex names;
    ElementIndex TabOrders;

    ElementArray<TextElement> Entries;
    ElementArray<FieldElement> Checks;
    ElementArray<FieldElement> Bitmaps;

    usrEntry Entry;
    Extent entryPlace;  // twips on the page
    bool isEntryVisible = false;
    ElementRef CurrentEntry;  // has the focus

    Size picContainer;  // twips: the part of the window in which the page shows
    ScrollBar hsbForm;
    ScrollBar vsbForm;
    QString Drivers;                   // names of the import drivers that the design offers
    bool hasStationery = false;        // the design has a stationery value
    bool isStationeryPainted = false;  // in `picForm`, once for a design

    // A press on a text element that may become a drag, and the drag.
    struct Drag {
        int source = 0;  // number in `Entries`; 0 for none
        double x = 0;    // twips, where the button went down
        double y = 0;
        int mode = 0;  // 0 none, 1 the value moves, 2 it is copied
    };
    Drag drag;
};

}  // namespace sheetwright

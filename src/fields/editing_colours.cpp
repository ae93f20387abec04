#include "fields/editing_colours.h"

#include "core/application.h"
#include "document/document.h"
#include "document/page.h"
#include "fields/editing.h"
#include "fields/editing_elements.h"
#include "print/form_surfaces.h"

#include <optional>

namespace sheetwright {

namespace {

constexpr Colour kWhite = 0xFFFFFF;
constexpr Colour kBlack = 0;
constexpr Colour kRed = 255;

// A decimal number of the settings; none for a text that names no colour.
std::optional<Colour> ColourSetting(const Application& application, const QString& key) {
    const QString text = application.settings.Read(application.Title, QStringLiteral("frmPrefs"), key);
    bool isNumber = false;
    const Colour colour = text.trimmed().toUInt(&isNumber);
    return isNumber && colour <= kWhite ? std::optional(colour) : std::nullopt;
}

Colour SelectedBackColor(const Application& application) {
    return ColourSetting(application, QStringLiteral("SelectedBackColor")).value_or(kWhite);
}

std::optional<Colour> SelectedForeColor(const Application& application) {
    return ColourSetting(application, QStringLiteral("SelectedForeColor"));
}

}  // namespace

void ColourEntry(frmSheetwright& document) {
    usrEntry& entry = document.page->Entry;
    entry.SetBackColor(SelectedBackColor(document.application));
    if (const auto colour = SelectedForeColor(document.application)) entry.SetForeColor(*colour);
}

void ColourSelected(frmSheetwright& document, ElementRef element) {
    if (element.kind != ElementKind::Check) return;
    FieldElement* const check = FieldOf(*document.page, element);
    if (check == nullptr) return;
    check->control->SetBackColor(SelectedBackColor(document.application));
    check->control->SetForeColor(SelectedForeColor(document.application).value_or(kBlack));
    document.window->ElementChanged(element);
}

void RestoreColours(frmSheetwright& document, ElementRef element) {
    if (element.kind != ElementKind::Check) return;
    FieldElement* const check = FieldOf(*document.page, element);
    const std::shared_ptr<const PropertyBag> record = RecordOf(*document.page, element);
    if (check == nullptr || record == nullptr) return;
    check->control->SetBackColor(document.surfaces->picForm.BackColor);
    Ignoring([&] { check->control->SetForeColor(CheckRecord(document.application, *record).ForeColor()); });
    document.window->ElementChanged(element);
}

void UpdateColors(frmSheetwright& document) {
    usrEntry& entry = document.page->Entry;
    entry.SetBackColor(SelectedBackColor(document.application));
    entry.SetForeColor(SelectedForeColor(document.application).value_or(kBlack));
    entry.Refresh();
    ColourSelected(document, document.page->CurrentEntry);
    HighlightBlanks(document);
}

void HighlightBlanks(frmSheetwright& document) {
    const Application& application = document.application;
    const bool marksBlanks = application.mainWindow->IsBlankTicked() && !document.Importing;
    const Colour blankColour =
        marksBlanks ? ColourSetting(application, QStringLiteral("BlankBackColor")).value_or(kRed) : kWhite;
    ElementRef element{ElementKind::Entry, 0};
    for (TextElement& entry : document.page->Entries) {
        ++element.number;
        const Colour colour = entry.text.isEmpty() ? blankColour : kWhite;
        if (entry.backColor == colour) continue;
        entry.backColor = colour;
        document.window->ElementChanged(element);
    }
}

}  // namespace sheetwright

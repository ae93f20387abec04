#include "fields/editing_text.h"

#include "core/application.h"
#include "core/failure.h"
#include "document/document.h"
#include "document/page.h"
#include "fields/editing.h"
#include "fields/editing_elements.h"
#include "formula/display_mask.h"
#include "formula/value_conversion.h"
#include "formula/value_numbers.h"

#include <algorithm>
#include <optional>

namespace sheetwright {

namespace {

bool HoldsDigit(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar character) { return DigitOf(character) >= 0; });
}

// A mask that fails leaves the text as it was typed.
QString ThroughMask(const frmSheetwright& document, const QString& text, const QString& mask) {
    QString shown = text;
    if (!mask.isEmpty())
        Ignoring([&] { shown = FormatValue(text, mask, document.application.conventions, document.words); });
    return shown;
}

bool HoldsLetter(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar character) { return character.isLetter(); });
}

// What the platform reads as a date, in its short form; "" when it reads none.
QString AsPlatformReads(const QString& text, const Conventions& conventions) {
    const std::optional<QDate> date = StrictDate(text, conventions);
    return date ? ShortDate(*date, conventions) : QString();
}

// A date as it was typed, in the order of the date mask. The digits of a date with a month's name are no
// whole date: what stands in a field with a long mask must survive that the field is entered and left.
QString InOrder(const QString& typed, const Conventions& conventions) {
    QString date = HoldsLetter(typed) ? AsPlatformReads(typed, conventions) : QString();
    if (!date.isEmpty()) return date;
    date = typed;
    NormaliseDateTyped(date, conventions);
    if (date.isEmpty()) date = AsPlatformReads(typed, conventions);
    return date.isEmpty() ? typed : date;
}

void TakeDate(frmSheetwright& document, int number, const QString& text, const QString& mask) {
    if (!HoldsDigit(text)) return PutText(document, number, {});
    const Conventions& conventions = document.application.conventions;
    Ignoring([&] {
        const QDate date = ParseDate(InOrder(text, conventions), conventions);
        PutText(document, number, FormatDate(date, mask, conventions));
    });
}

}  // namespace

void PutText(frmSheetwright& document, int number, const QString& text) {
    Page& page = *document.page;
    if (number < 1 || number > page.Entries.Count()) return;
    TextElement& element = page.Entries.At(number);
    if (element.text == text) return;
    element.text = text;
    MarkChanged(document);
    document.window->ElementChanged({ElementKind::Entry, number});
}

void TakeText(frmSheetwright& document, ElementRef element, const QString& text, const QString& mask) {
    if (element.kind != ElementKind::Entry) return;
    if (mask.contains(u"Date")) {
        TakeDate(document, element.number, text, mask);
    } else {
        PutText(document, element.number, ThroughMask(document, text, mask));
    }
}

}  // namespace sheetwright

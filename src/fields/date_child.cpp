#include "fields/date_child.h"

#include "core/conventions.h"
#include "core/failure.h"
#include "formula/value_conversion.h"

namespace sheetwright {

DateChild::DateChild(int tabIndex, const Conventions& conventions)
    : FieldChild(tabIndex), m_conventions(conventions), m_value(QDate::currentDate()) {}

void DateChild::SetValue(QDate date) {
    if (!date.isValid()) throw Failure(failure::kInvalidProperty);
    if (date == m_value) return;
    m_value = date;
    if (Change) Change();
}

QString DateChild::Text() const {
    return Format == DateFormat::Long ? m_conventions.locale.toString(m_value, QLocale::LongFormat)
                                      : ShortDate(m_value, m_conventions);
}

std::optional<QDate> DateChild::DateOf(const QString& text) const {
    return StrictDate(text, m_conventions);
}

}  // namespace sheetwright

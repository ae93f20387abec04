#include "fields/date_child.h"

#include "core/conventions.h"
#include "core/failure.h"
#include "formula/value_conversion.h"

namespace sheetwright {

namespace {

// No locale's long date comes near; reading a text as one takes time with its length.
constexpr qsizetype kLongestText = 200;

}  // namespace

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
    if (text.size() > kLongestText) return std::nullopt;
    const QDate longDate = m_conventions.locale.toDate(text, QLocale::LongFormat);
    return longDate.isValid() ? longDate : StrictDate(text, m_conventions);
}

}  // namespace sheetwright

#pragma once

// The date picker of a field control.

#include "fields/field_child.h"

#include <QDate>

#include <functional>

namespace sheetwright {

struct Conventions;

class DateChild : public FieldChild {
  public:
    enum class DateFormat { Long, Short };

    // `conventions` lives longer than the picker. Starts with today.
    DateChild(int tabIndex, const Conventions& conventions);

    [[nodiscard]] QDate Value() const { return m_value; }
    void SetValue(QDate date);  // raises 380 for a date that is none

    // In the picker's format, which is the system's long or short one.
    [[nodiscard]] QString Text() const;
    // Raises 13 for a text that is no date.
    void SetText(const QString& text);

    DateFormat Format = DateFormat::Short;
    std::function<void()> Change;  // the date is another

  private:
    const Conventions& m_conventions;
    QDate m_value;
};

}  // namespace sheetwright

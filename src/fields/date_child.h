#pragma once

// The date picker of a field control.

#include "fields/field_child.h"

#include <QDate>

#include <functional>
#include <optional>

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
    // The date that a text stands for; none for a text that the picker refuses.
    [[nodiscard]] std::optional<QDate> DateOf(const QString& text) const;

    DateFormat Format = DateFormat::Short;
    std::function<void()> Change;  // the date is another

  private:
    const Conventions& m_conventions;
    QDate m_value;
};

}  // namespace sheetwright

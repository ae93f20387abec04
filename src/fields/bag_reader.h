#pragma once

// The properties of a control in a bag, where an absent key means a default. Raises as RecordView for a value
// that can't be read.

#include "core/failure.h"
#include "document/design_records.h"

namespace sheetwright {

class BagReader {
  public:
    BagReader(const Application& application, const PropertyBag& bag) : m_view(application, bag) {}

    [[nodiscard]] QString Text(QStringView key, const QString& absent) const {
        return m_view.TextOr(key, absent);
    }
    [[nodiscard]] bool Boolean(QStringView key, bool absent) const {
        return m_view.Has(key) ? m_view.Boolean(key) : absent;
    }
    [[nodiscard]] std::uint8_t Byte(QStringView key, std::uint8_t absent) const {
        return m_view.Has(key) ? m_view.Byte(key) : absent;
    }
    [[nodiscard]] std::int16_t Int16(QStringView key, std::int16_t absent) const {
        return m_view.Has(key) ? m_view.Int16(key) : absent;
    }
    [[nodiscard]] std::uint32_t Colour(QStringView key, std::uint32_t absent) const {
        return m_view.Has(key) ? m_view.Colour(key) : absent;
    }
    [[nodiscard]] float Single(QStringView key, float absent) const {
        return m_view.Has(key) ? ToSingle(m_view.Number(key)) : absent;
    }

  private:
    RecordView m_view;
};

}  // namespace sheetwright

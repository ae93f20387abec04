#pragma once

// Puts the properties of a control into a bag in the order they come, so that BagReader reads them back.

#include "document/design_records.h"
#include "formula/value.h"

namespace sheetwright {

class BagWriter {
  public:
    // Both live longer than the writer.
    BagWriter(PropertyBag& bag, const Conventions& conventions) : m_bag(bag), m_conventions(conventions) {}

    // Raises 457 for a key that is there.
    void Add(const QString& key, const QString& text) { m_bag.Add(text, key); }
    void Add(const QString& key, bool isTrue) { AddValue(key, isTrue); }
    void Add(const QString& key, std::int16_t number) { AddValue(key, number); }
    void Add(const QString& key, std::uint8_t number) { AddValue(key, static_cast<std::int16_t>(number)); }
    void Add(const QString& key, std::uint32_t colour) { AddValue(key, static_cast<double>(colour)); }
    void Add(const QString& key, double number) { AddValue(key, number); }

  private:
    void AddValue(const QString& key, const Value& value) { m_bag.Add(TextOf(value, m_conventions), key); }

    PropertyBag& m_bag;
    const Conventions& m_conventions;
};

}  // namespace sheetwright

#pragma once

// The records of a design as typed, checked views over their keys: one class for each kind of record, the
// only place that knows its keys. A view reads a key when it is asked, so that one bad key costs one step of
// the caller's work. Keys and records that no view knows stay in the lines, unread.

#include "core/conventions.h"
#include "core/keyed_collection.h"

#include <QString>
#include <QStringView>

#include <cstdint>

namespace sheetwright {

class Application;

// The keys of one record and their values, by name in any case. The first of two equal keys stays.
using PropertyBag = KeyedCollection<QString>;

// The kind of a record is told by the first four letters of its word: "FIELDX" is a field.
inline constexpr qsizetype kKindLength = 4;
[[nodiscard]] inline QStringView KindOf(QStringView word) {
    return word.left(kKindLength);
}

// Positions and sizes in twips on the page.
struct Extent {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

// Reads the keys of a bag. Raises 5 for a key that is missing, 6 for a number that doesn't fit, 13 for a text
// that is no Boolean. Numbers are read tolerantly: what is no number is 0.
class RecordView {
  public:
    RecordView(const Application& application, const PropertyBag& bag)
        : m_application(application), m_bag(bag) {}

    [[nodiscard]] const QString& Text(QStringView key) const;
    [[nodiscard]] double Number(QStringView key) const;
    [[nodiscard]] std::int16_t Int16(QStringView key) const;
    [[nodiscard]] std::uint8_t Byte(QStringView key) const;
    [[nodiscard]] std::uint32_t Colour(QStringView key) const;  // -2,147,483,648 to 4,294,967,295
    [[nodiscard]] bool Word(QStringView key) const;             // "True" or its translation, else false
    [[nodiscard]] bool Boolean(QStringView key) const;          // also a number; raises 13 for other texts
    [[nodiscard]] bool Has(QStringView key) const { return m_bag.Contains(key); }

    // Not when the key "Printable" is there and false.
    [[nodiscard]] bool IsPrintable() const;

    [[nodiscard]] double AbsLeft() const { return Number(u"AbsLeft"); }
    [[nodiscard]] double AbsTop() const { return Number(u"AbsTop"); }
    [[nodiscard]] double Width() const { return Number(u"Width"); }
    [[nodiscard]] double Height() const { return Number(u"Height"); }

  protected:
    [[nodiscard]] const Application& App() const { return m_application; }

  private:
    const Application& m_application;
    const PropertyBag& m_bag;
};

}  // namespace sheetwright

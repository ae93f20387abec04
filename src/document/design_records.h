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

// Whether a FIEL record is shown as a text box; any other is a picture field.
[[nodiscard]] constexpr bool IsTextFieldType(double fieldType) {
    return fieldType == 0 || fieldType == 2;
}

// Positions and sizes in twips on the page.
struct Extent {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    bool operator==(const Extent&) const = default;
};

// Reads the keys of a bag. Raises 5 for a key that is missing, 6 for a number that doesn't fit, 13 for a text
// that is no Boolean. Numbers are read tolerantly: what is no number is 0.
class RecordView {
  public:
    // Both live longer than the view.
    RecordView(const Application& application, const PropertyBag& bag)
        : m_application(application), m_bag(bag) {}

    [[nodiscard]] const QString& Text(QStringView key) const;
    [[nodiscard]] double Number(QStringView key) const;
    [[nodiscard]] std::int16_t Int16(QStringView key) const;
    [[nodiscard]] std::uint8_t Byte(QStringView key) const;
    // -2,147,483,648 to 4,294,967,295; those below 0 are the same 32 bits without a sign.
    [[nodiscard]] std::uint32_t Colour(QStringView key) const;
    [[nodiscard]] bool Word(QStringView key) const;     // "True" or its translation, else false
    [[nodiscard]] bool Boolean(QStringView key) const;  // also a number; raises 13 for other texts
    [[nodiscard]] bool Has(QStringView key) const { return m_bag.Contains(key); }
    [[nodiscard]] QString TextOr(QStringView key, const QString& absent) const;

    // Not when the key "Printable" is there and false.
    [[nodiscard]] bool IsPrintable() const;

    [[nodiscard]] double AbsLeft() const { return Number(u"AbsLeft"); }
    [[nodiscard]] double AbsTop() const { return Number(u"AbsTop"); }
    [[nodiscard]] double Width() const { return Number(u"Width"); }
    [[nodiscard]] double Height() const { return Number(u"Height"); }
    [[nodiscard]] Extent Place() const { return {AbsLeft(), AbsTop(), Width(), Height()}; }

  protected:
    [[nodiscard]] const Application& App() const { return m_application; }

  private:
    const Application& m_application;
    const PropertyBag& m_bag;
};

// PAGE: the page's own keys.
class PageRecord : public RecordView {
  public:
    using RecordView::RecordView;

    static constexpr std::uint32_t kWhite = 0xFFFFFF;

    [[nodiscard]] bool HasTitle() const { return Has(u"Title"); }
    [[nodiscard]] const QString& Title() const { return Text(u"Title"); }
    [[nodiscard]] std::uint32_t BackGround() const {
        return Has(u"BackGround") ? Colour(u"BackGround") : kWhite;
    }
    [[nodiscard]] QString Drivers() const { return TextOr(u"Drivers", {}); }
    [[nodiscard]] QString PrePrinted() const { return TextOr(u"PrePrinted", {}); }
    [[nodiscard]] std::int16_t Orientation() const { return Int16(u"Orientation"); }
    [[nodiscard]] std::int16_t PaperSize() const { return Int16(u"PaperSize"); }
};

// The styles of a font.
struct FontStyles {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikethru = false;

    bool operator==(const FontStyles&) const = default;
};

// What all records with a text have.
class TextRecord : public RecordView {
  public:
    using RecordView::RecordView;

    [[nodiscard]] const QString& FontName() const { return Text(u"FontName"); }
    [[nodiscard]] double FontSize() const { return Number(u"FontSize"); }  // points
    // As texts are painted: what isn't the word for true is false.
    [[nodiscard]] FontStyles PaintedStyles() const;
    // As a field shows them while it is edited: Booleans, raising 13 for other texts.
    [[nodiscard]] FontStyles ControlStyles() const;
    [[nodiscard]] std::uint32_t ForeColor() const { return Colour(u"ForeColor"); }
};

// FRAM: a plain box.
class FrameRecord : public RecordView {
  public:
    using RecordView::RecordView;

    [[nodiscard]] double BorderStyle() const { return Number(u"BorderStyle"); }  // 1: drawn
};

// What lines and shapes have.
class OutlineRecord : public RecordView {
  public:
    using RecordView::RecordView;

    // 1 solid, 2 dash, 3 dot, 4 dash-dot, 5 dash-dot-dot, 6 inside solid.
    [[nodiscard]] std::int16_t BorderType() const { return Int16(u"BorderType"); }
    [[nodiscard]] std::int16_t BorderWidth() const { return Int16(u"BorderWidth"); }  // screen pixels
    [[nodiscard]] std::uint32_t BorderColor() const { return Colour(u"BorderColor"); }
};

class LineRecord : public OutlineRecord {
  public:
    using OutlineRecord::OutlineRecord;

    // "0" from top left to bottom right, "1" from bottom left to top right.
    [[nodiscard]] const QString& Direction() const { return Text(u"Direction"); }
};

class ShapeRecord : public OutlineRecord {
  public:
    using OutlineRecord::OutlineRecord;

    [[nodiscard]] std::uint32_t FillColor() const { return Colour(u"FillColor"); }
    [[nodiscard]] std::int16_t FillStyle() const { return Int16(u"FillStyle"); }
    // "rect", "square", "oval" or "circle"; "" for a number that is none of them.
    [[nodiscard]] QString Shape() const;
};

// LABE: a fixed text.
class LabelRecord : public TextRecord {
  public:
    using TextRecord::TextRecord;

    [[nodiscard]] double BorderStyle() const { return Number(u"BorderStyle"); }  // 1 box, 2 rule
    [[nodiscard]] std::int16_t Alignment() const { return Int16(u"Alignment"); }
    [[nodiscard]] const QString& Caption() const { return Text(u"Caption"); }
};

// FIEL: a data field, also one that holds a picture.
class FieldRecord : public TextRecord {
  public:
    using TextRecord::TextRecord;

    [[nodiscard]] const QString& Name() const { return Text(u"Name"); }
    // On paper a field without a type is a text, on screen it is a picture.
    [[nodiscard]] bool PrintsAsText() const { return !Has(u"FieldType") || ShowsText(); }
    [[nodiscard]] bool ShowsText() const {
        return Has(u"FieldType") && IsTextFieldType(Number(u"FieldType"));
    }
    [[nodiscard]] bool WordWrap() const { return Boolean(u"WordWrap"); }
    [[nodiscard]] std::int16_t Alignment() const { return Int16(u"Alignment"); }
    [[nodiscard]] bool ReadOnly() const { return Boolean(u"ReadOnly"); }
    [[nodiscard]] double BorderStyle() const { return Number(u"BorderStyle"); }
    [[nodiscard]] bool Visible() const { return !Has(u"Visible") || Boolean(u"Visible"); }
    [[nodiscard]] const QString& TabIdx() const { return Text(u"TabIdx"); }
    [[nodiscard]] QString Formula() const { return TextOr(u"Formula", {}); }
    [[nodiscard]] QString List() const { return TextOr(u"List", {}); }
    [[nodiscard]] QString DataSource() const { return TextOr(u"DataSource", {}); }
    [[nodiscard]] QString Format() const { return TextOr(u"Format", {}); }
    [[nodiscard]] std::int16_t KeyLevel() const { return Int16(u"KeyLevel"); }
    [[nodiscard]] std::int16_t MultiRecordIndex() const { return Int16(u"MultiRecordIndex"); }
    [[nodiscard]] bool NewLineOnChange() const { return Word(u"NewLineOnChange"); }
    [[nodiscard]] bool NewLineOnReoccur() const { return Word(u"NewLineOnReoccur"); }
    [[nodiscard]] bool NewPageOnChange() const { return Word(u"NewPageOnChange"); }
    [[nodiscard]] bool NewPageOnReoccur() const { return Word(u"NewPageOnReoccur"); }
};

// CHEC: a check box with its caption.
class CheckRecord : public TextRecord {
  public:
    using TextRecord::TextRecord;

    [[nodiscard]] const QString& Name() const { return Text(u"Name"); }
    [[nodiscard]] std::uint8_t Style() const { return Byte(u"Style"); }
    [[nodiscard]] bool IsBoxOnTheRight() const { return Number(u"Style") == 1; }
    [[nodiscard]] const QString& Caption() const { return Text(u"Caption"); }
    [[nodiscard]] std::uint8_t States() const { return Byte(u"States"); }
    [[nodiscard]] const QString& TabIdx() const { return Text(u"TabIdx"); }
};

// PICT: a fixed picture.
class PictureRecord : public RecordView {
  public:
    using RecordView::RecordView;

    [[nodiscard]] double BorderStyle() const { return Number(u"BorderStyle"); }  // 1: framed
    [[nodiscard]] const QString& Picture() const { return Text(u"Picture"); }    // path or bare name
    [[nodiscard]] bool Stretch() const { return Word(u"Stretch"); }
};

}  // namespace sheetwright

#include "document/design_records.h"

#include "core/application.h"
#include "core/failure.h"
#include "formula/value_conversion.h"

#include <limits>

namespace sheetwright {

const QString& RecordView::Text(QStringView key) const {
    return m_bag.At(key);
}

double RecordView::Number(QStringView key) const {
    return ToNumber(Text(key), m_application.conventions);
}

std::int16_t RecordView::Int16(QStringView key) const {
    return ToInt16(Number(key));
}

std::uint8_t RecordView::Byte(QStringView key) const {
    const std::int16_t number = Int16(key);
    if (number < 0 || number > std::numeric_limits<std::uint8_t>::max()) throw Failure(failure::kOverflow);
    return static_cast<std::uint8_t>(number);
}

std::uint32_t RecordView::Colour(QStringView key) const {
    constexpr std::uint32_t kTopBit = 0x80000000;
    const double number = Number(key);
    if (number <= std::numeric_limits<std::int32_t>::max())
        return static_cast<std::uint32_t>(ToInt32(number));
    return static_cast<std::uint32_t>(ToInt32(number - kTopBit)) + kTopBit;
}

bool RecordView::Word(QStringView key) const {
    return m_application.Str2Boolean(Text(key));
}

bool RecordView::Boolean(QStringView key) const {
    const QString& text = Text(key);
    const TruthWords words = m_application.TranslatedTruthWords();
    if (text == words.TrueWord) return true;
    if (text == words.FalseWord) return false;
    return ToBoolean(text, m_application.conventions);
}

QString RecordView::TextOr(QStringView key, const QString& absent) const {
    const QString* const text = m_bag.Find(key);
    return text == nullptr ? absent : *text;
}

bool RecordView::IsPrintable() const {
    bool isPrintable = true;
    if (Has(u"Printable")) Ignoring([&] { isPrintable = Boolean(u"Printable"); });
    return isPrintable;
}

FontStyles TextRecord::PaintedStyles() const {
    return {Word(u"FontBold"), Word(u"FontItalic"), Word(u"FontUnderline"), Word(u"FontStrikethru")};
}

FontStyles TextRecord::ControlStyles() const {
    return {Boolean(u"FontBold"), Boolean(u"FontItalic"), Boolean(u"FontUnderline"),
            Boolean(u"FontStrikethru")};
}

QString ShapeRecord::Shape() const {
    struct Name {
        double number;
        QStringView name;
    };
    static constexpr Name kNames[] = {{0, u"rect"}, {1, u"square"}, {2, u"oval"}, {3, u"circle"}};
    const double number = Number(u"Shape");
    for (const Name& name : kNames)
        if (name.number == number) return name.name.toString();
    return {};
}

}  // namespace sheetwright

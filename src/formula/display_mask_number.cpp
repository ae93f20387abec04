#include "formula/display_mask_number.h"

#include "formula/value_digits.h"
#include "formula/value_numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace sheetwright {

namespace {

enum class Slot { Fixed, Integer, Point, Fraction, Exponent };

struct NumberSlot {
    Slot kind = Slot::Fixed;
    QChar character;         // the fixed character, "0" or "#" for a digit, "E" or "e"
    bool hasPlus = false;    // Exponent: a sign also when positive
    int exponentDigits = 0;  // Exponent: at least so many
};

struct NumberMask {
    std::vector<NumberSlot> places;
    int integers = 0;
    int fractions = 0;
    int shift = 0;            // places by which percent signs and trailing commas move the decimal point
    int forcedFractions = 0;  // decimals up to the last "0"
    bool isGrouped = false;
    bool hasPoint = false;
    bool hasExponent = false;
};

// Sorts the characters of one section into places.
class NumberMaskReader {
  public:
    explicit NumberMaskReader(MaskSection section) : m_section(section) {}

    NumberMask Read() {
        for (m_at = 0; m_at < m_section.size(); ++m_at)
            Take(m_section[m_at]);
        DropThousands();
        return std::move(m_mask);
    }

  private:
    void Take(const MaskCharacter& here) {
        if (here.IsOneOf(u"0#")) {
            TakeDigit(here.character);
        } else if (here.Is(u'.') && !m_mask.hasPoint) {
            m_mask.hasPoint = true;
            DropThousands();
            m_mask.places.push_back({Slot::Point, here.character});
        } else if (here.Is(u',')) {
            if (m_mask.integers > 0 || m_mask.fractions > 0) ++m_commas;
        } else if (IsExponent(here)) {
            TakeExponent(here.character);
        } else {
            if (here.Is(u'%')) m_mask.shift += 2;
            m_mask.places.push_back({Slot::Fixed, here.character});
        }
    }

    void DropThousands() { m_mask.shift -= 3 * std::exchange(m_commas, 0); }

    void TakeDigit(QChar digit) {
        const bool isBehindComma = std::exchange(m_commas, 0) > 0;
        if (m_mask.hasPoint) {
            ++m_mask.fractions;
            if (digit == u'0') m_mask.forcedFractions = m_mask.fractions;
            m_mask.places.push_back({Slot::Fraction, digit});
            return;
        }
        ++m_mask.integers;
        if (isBehindComma) m_mask.isGrouped = true;
        m_mask.places.push_back({Slot::Integer, digit});
    }

    [[nodiscard]] bool IsExponent(const MaskCharacter& here) const {
        return here.IsOneOf(u"Ee") && !m_mask.hasExponent && m_at + 2 < m_section.size() &&
               m_section[m_at + 1].IsOneOf(u"+-") && m_section[m_at + 2].IsOneOf(u"0#");
    }

    void TakeExponent(QChar letter) {
        NumberSlot slot{Slot::Exponent, letter, m_section[++m_at].character == u'+'};
        while (m_at + 1 < m_section.size() && m_section[m_at + 1].IsOneOf(u"0#")) {
            if (m_section[++m_at].character == u'0') ++slot.exponentDigits;
        }
        m_mask.hasExponent = true;
        m_mask.places.push_back(slot);
    }

    MaskSection m_section;
    std::size_t m_at = 0;
    int m_commas = 0;  // since the last digit: a group sign before another digit, else thousands to drop
    NumberMask m_mask;
};

// Writes rounded digits into the places of a mask.
class NumberWriter {
  public:
    NumberWriter(const NumberMask& mask, const DecimalDigits& digits, int exponent,
                 const Conventions& conventions)
        : m_mask(mask), m_digits(digits), m_exponent(exponent), m_conventions(conventions) {
        if (mask.isGrouped) m_groupSeparator = GroupSeparatorOf(conventions);
    }

    QString Text() {
        m_integersLeft = m_mask.integers;
        for (const NumberSlot& slot : m_mask.places)
            Write(slot);
        return m_text;
    }

  private:
    void Write(const NumberSlot& slot) {
        switch (slot.kind) {
            case Slot::Fixed:
                m_text += slot.character;
                break;
            case Slot::Integer:
                WriteInteger(slot.character == u'0');
                break;
            case Slot::Point:
                if (m_mask.integers == 0) WriteLeadingDigits(0);
                m_text += m_conventions.DecimalSeparator;
                break;
            case Slot::Fraction:
                WriteFraction();
                break;
            case Slot::Exponent:
                WriteExponent(slot);
        }
    }

    void WriteInteger(bool isZero) {
        if (m_integersLeft == m_mask.integers) WriteLeadingDigits(m_integersLeft);
        --m_integersLeft;
        if (isZero) m_isForced = true;
        if (m_isForced || m_integersLeft < m_digits.Point()) WriteIntegerDigit(m_integersLeft);
    }

    // The digits for which the mask has no place of their own go in front of its first.
    void WriteLeadingDigits(int firstPlace) {
        for (int power = m_digits.Point() - 1; power >= firstPlace; --power)
            WriteIntegerDigit(power);
    }

    void WriteIntegerDigit(int power) {
        m_text += m_digits.DigitWorth(power);
        if (m_mask.isGrouped && power > 0 && power % 3 == 0) m_text += m_groupSeparator;
    }

    void WriteFraction() {
        ++m_fractionsDone;
        if (m_fractionsDone <= std::max(m_mask.forcedFractions, m_digits.Decimals()))
            m_text += m_digits.DigitWorth(-m_fractionsDone);
    }

    void WriteExponent(const NumberSlot& slot) {
        m_text += slot.character;
        if (m_exponent < 0) {
            m_text += u'-';
        } else if (slot.hasPlus) {
            m_text += u'+';
        }
        m_text += QString::number(std::abs(m_exponent)).rightJustified(slot.exponentDigits, u'0');
    }

    const NumberMask& m_mask;
    const DecimalDigits& m_digits;
    int m_exponent;
    const Conventions& m_conventions;
    QChar m_groupSeparator;
    QString m_text;
    int m_integersLeft = 0;
    int m_fractionsDone = 0;
    bool m_isForced = false;
};

// Rounds to the decimals of the mask, under an exponent so that the places before the point are just filled.
int RoundFor(const NumberMask& mask, DecimalDigits& digits) {
    digits.Shift(mask.shift);
    int exponent = 0;
    if (mask.hasExponent && !digits.IsZero()) {
        exponent = digits.Point() - mask.integers;
        digits.Shift(-exponent);
    }
    digits.Round(mask.fractions);
    if (mask.hasExponent && digits.Point() > mask.integers) {
        digits.Shift(-1);
        ++exponent;
    }
    return exponent;
}

MaskSection SectionFor(double number, const std::vector<MaskSection>& sections) {
    const std::size_t index = number < 0 ? 1 : number == 0 ? 2 : 0;
    return index < sections.size() && !sections[index].empty() ? sections[index] : sections[0];
}

}  // namespace

QString FormatNumber(double number, const std::vector<MaskSection>& sections,
                     const Conventions& conventions) {
    const MaskSection section = SectionFor(number, sections);
    const NumberMask mask = NumberMaskReader(section).Read();
    DecimalDigits digits(number);
    const int exponent = RoundFor(mask, digits);
    const QString text = NumberWriter(mask, digits, exponent, conventions).Text();
    const bool needsSign = section.data() == sections[0].data() && mask.integers + mask.fractions > 0;
    return needsSign && digits.IsNegative() ? u'-' + text : text;
}

QString FormatCurrency(double number, const Conventions& conventions) {
    const std::vector<MaskCharacter> mask = ReadMask(u"#,##0.00");
    QString amount = FormatNumber(std::abs(number), SplitSections(mask), conventions);
    const bool isNegative = number < 0 && std::any_of(amount.begin(), amount.end(), [](QChar character) {
                                return character >= u'1' && character <= u'9';
                            });
    QString sample = conventions.locale.toCurrencyString(isNegative ? -1.0 : 1.0);
    const auto isDigit = [](QChar character) { return character.isDigit(); };
    const auto first = std::find_if(sample.cbegin(), sample.cend(), isDigit);
    const auto last = std::find_if(sample.crbegin(), sample.crend(), isDigit).base();
    if (first == sample.cend()) return amount;
    return sample.replace(first - sample.cbegin(), last - first, amount);
}

}  // namespace sheetwright

#include "formula/display_mask.h"

#include "formula/display_mask_date.h"
#include "formula/display_mask_lexer.h"
#include "formula/display_mask_number.h"
#include "formula/display_mask_text.h"
#include "formula/value_conversion.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sheetwright {

namespace {

struct MaskContext {
    const Conventions& conventions;
    const TruthWords& words;
};

// A text as the number or the moment that a mask wants; none when it is neither.
std::optional<double> NumberOf(const QString& text, const MaskContext& context) {
    const QString bare = text.trimmed();
    const auto isWord = [&bare](const QString& word) { return bare.compare(word, Qt::CaseInsensitive) == 0; };
    if (isWord(QStringLiteral("True")) || isWord(context.words.TrueWord)) return -1;
    if (isWord(QStringLiteral("False")) || isWord(context.words.FalseWord)) return 0;
    return StrictNumber(text, context.conventions);
}

// "20031231", the form in which drivers and comparisons hold dates.
std::optional<Moment> MomentOfStamp(const QString& text) {
    const bool isStamp = text.size() == 8 && std::all_of(text.begin(), text.end(), [](QChar character) {
                             return character >= u'0' && character <= u'9';
                         });
    if (!isStamp) return std::nullopt;
    const QDate date = QDate::fromString(text, QStringLiteral("yyyyMMdd"));
    return date.isValid() && date.year() >= kFirstYear ? std::optional(Moment{date}) : std::nullopt;
}

// Days since the empty date; the decimals are the time of day, also of a day before it.
std::optional<Moment> MomentOfDays(double days) {
    constexpr double kFirstDay = -657434;
    constexpr double kLastDay = 2958465;
    constexpr qint64 kSecondsOfDay = 86400;
    const double day = std::trunc(days);
    const qint64 seconds = std::llround(std::abs(days - day) * kSecondsOfDay);
    const double rounded = seconds < kSecondsOfDay ? day : day + 1;
    if (rounded < kFirstDay || rounded > kLastDay) return std::nullopt;
    const int milliseconds = static_cast<int>(seconds % kSecondsOfDay) * 1000;
    return Moment{EmptyDate().addDays(static_cast<qint64>(rounded)),
                  QTime::fromMSecsSinceStartOfDay(milliseconds)};
}

std::optional<Moment> MomentOf(const QString& text, const MaskContext& context) {
    if (const auto moment = MomentOfStamp(text.trimmed())) return moment;
    if (const auto moment = ReadMoment(text, context.conventions)) return moment;
    const std::optional<double> days = StrictNumber(text, context.conventions);
    return days ? MomentOfDays(*days) : std::nullopt;
}

QString ByNumberMask(double number, QStringView mask, const MaskContext& context) {
    const std::vector<MaskCharacter> characters = ReadMask(mask);
    return FormatNumber(number, SplitSections(characters), context.conventions);
}

QString ByDateMask(const Moment& moment, QStringView mask, const MaskContext& context) {
    return FormatMoment(moment, ReadMask(mask), context.conventions);
}

using ShowNumber = QString (*)(double, const MaskContext&);
using ShowMoment = QString (*)(const Moment&, const MaskContext&);

struct NamedNumberMask {
    QStringView name;
    ShowNumber show;
};

struct NamedDateMask {
    QStringView name;
    ShowMoment show;
};

QString General(double number, const MaskContext& context) {
    return DoubleText(number, context.conventions);
}
QString Currency(double number, const MaskContext& context) {
    return FormatCurrency(number, context.conventions);
}
QString Fixed(double number, const MaskContext& context) {
    return ByNumberMask(number, u"0.00", context);
}
QString Standard(double number, const MaskContext& context) {
    return ByNumberMask(number, u"#,##0.00", context);
}
QString Percent(double number, const MaskContext& context) {
    return ByNumberMask(number, u"0.00%", context);
}
QString Scientific(double number, const MaskContext& context) {
    return ByNumberMask(number, u"0.00E+00", context);
}
QString YesNo(double number, const MaskContext&) {
    return number != 0 ? QStringLiteral("Yes") : QStringLiteral("No");
}
QString TrueFalse(double number, const MaskContext& context) {
    return number != 0 ? context.words.TrueWord : context.words.FalseWord;
}
QString OnOff(double number, const MaskContext&) {
    return number != 0 ? QStringLiteral("On") : QStringLiteral("Off");
}

QString GeneralDateOf(const Moment& moment, const MaskContext& context) {
    return GeneralDate(moment, context.conventions);
}
QString LongDate(const Moment& moment, const MaskContext& context) {
    return ByDateMask(moment, u"dddddd", context);
}
QString MediumDate(const Moment& moment, const MaskContext& context) {
    return ByDateMask(moment, u"dd-mmm-yy", context);
}
QString ShortDateOf(const Moment& moment, const MaskContext& context) {
    return ShortDate(moment.date, context.conventions);
}
QString LongTimeOf(const Moment& moment, const MaskContext& context) {
    return LongTime(moment.time, context.conventions);
}
QString MediumTime(const Moment& moment, const MaskContext& context) {
    return ByDateMask(moment, u"hh:nn AM/PM", context);
}
QString ShortTime(const Moment& moment, const MaskContext& context) {
    return ByDateMask(moment, u"hh:nn", context);
}

constexpr std::array kNumberMasks{
    NamedNumberMask{u"General Number", General},
    NamedNumberMask{u"Currency", Currency},
    NamedNumberMask{u"Fixed", Fixed},
    NamedNumberMask{u"Standard", Standard},
    NamedNumberMask{u"Percent", Percent},
    NamedNumberMask{u"Scientific", Scientific},
    NamedNumberMask{u"Yes/No", YesNo},
    NamedNumberMask{u"True/False", TrueFalse},
    NamedNumberMask{u"On/Off", OnOff},
};

constexpr std::array kDateMasks{
    NamedDateMask{u"General Date", GeneralDateOf}, NamedDateMask{u"Long Date", LongDate},
    NamedDateMask{u"Medium Date", MediumDate},     NamedDateMask{u"Short Date", ShortDateOf},
    NamedDateMask{u"Long Time", LongTimeOf},       NamedDateMask{u"Medium Time", MediumTime},
    NamedDateMask{u"Short Time", ShortTime},
};

template <typename Masks>
auto Named(const Masks& masks, QStringView name) {
    const auto* found = std::find_if(masks.begin(), masks.end(), [name](const auto& mask) {
        return mask.name.size() == name.size() && mask.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == masks.end() ? nullptr : found->show;
}

bool Holds(const std::vector<MaskCharacter>& mask, QStringView letters) {
    return std::any_of(mask.begin(), mask.end(),
                       [&](const MaskCharacter& here) { return here.IsOneOf(letters); });
}

QString NumberText(const QString& text, const std::vector<MaskSection>& sections,
                   const MaskContext& context) {
    if (text.isEmpty() && sections.size() > 3) return FormatText(text, sections[3]);
    const std::optional<double> number = StrictNumber(text, context.conventions);
    return number ? FormatNumber(*number, sections, context.conventions) : text;
}

template <typename Show>
QString DateText(const QString& text, const MaskContext& context, Show&& show) {
    const std::optional<Moment> moment = MomentOf(text, context);
    return moment ? show(*moment) : text;
}

// A mask made of parts. Places for characters make it one for texts, places for digits one for numbers;
// without either the marks of letter case, then the parts of dates decide. Fixed text alone is shown for any
// number.
QString ByParts(const QString& text, const QString& mask, const MaskContext& context) {
    const std::vector<MaskCharacter> characters = ReadMask(mask);
    const std::vector<MaskSection> sections = SplitSections(characters);
    const bool hasDigits = Holds(characters, u"0#");
    if (Holds(characters, u"@&") || (!hasDigits && Holds(characters, u"<>!"))) {
        const bool isForEmpty = text.isEmpty() && sections.size() > 1;
        return FormatText(text, sections[isForEmpty ? 1 : 0]);
    }
    if (hasDigits || !HasDateParts(sections[0])) return NumberText(text, sections, context);
    return DateText(text, context, [&](const Moment& moment) {
        return FormatMoment(moment, sections[0], context.conventions);
    });
}

}  // namespace

QString FormatValue(const QString& text, const QString& mask, const Conventions& conventions,
                    const TruthWords& words) {
    if (mask.isEmpty()) return text;
    const MaskContext context{conventions, words};
    if (const ShowNumber show = Named(kNumberMasks, mask)) {
        const std::optional<double> number = NumberOf(text, context);
        return number ? show(*number, context) : text;
    }
    if (const ShowMoment show = Named(kDateMasks, mask))
        return DateText(text, context, [&](const Moment& moment) { return show(moment, context); });
    if (IsConventionMask(mask))
        return DateText(text, context,
                        [&](const Moment& moment) { return FormatByConventionMask(moment.date, mask); });
    return ByParts(text, mask, context);
}

QString FormatDate(QDate date, const QString& mask, const Conventions& conventions) {
    const QString stamp = date.toString(QStringLiteral("yyyyMMdd"));
    return mask.isEmpty() ? ShortDate(date, conventions) : FormatValue(stamp, mask, conventions);
}

}  // namespace sheetwright

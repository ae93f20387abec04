#include "formula/display_mask_date.h"

#include "formula/value_conversion.h"

#include <algorithm>
#include <array>

namespace sheetwright {

namespace {

struct DateContext {
    const Moment& moment;
    const Conventions& conventions;
    bool isTwelveHours = false;  // the mask holds a mark for the half of the day
    bool hasDay = false;         // the mask holds a day number, on which the form of a month's name depends
    bool isAfterHour = false;    // the last part shown was an hour, so that "m" means minutes
};

QString Padded(int number, int width) {
    return QString::number(number).rightJustified(width, u'0');
}

int HourOf(const DateContext& context) {
    const int hour = context.moment.time.hour();
    if (!context.isTwelveHours) return hour;
    return hour % 12 == 0 ? 12 : hour % 12;
}

QString MonthName(const DateContext& context, QLocale::FormatType form) {
    const int month = context.moment.date.month();
    return context.hasDay ? context.conventions.locale.monthName(month, form)
                          : context.conventions.locale.standaloneMonthName(month, form);
}

QString DayName(const DateContext& context, QLocale::FormatType form) {
    return context.conventions.locale.dayName(context.moment.date.dayOfWeek(), form);
}

// Weeks begin on Sunday, the first is the one with 1 January.
int WeekOf(QDate date) {
    const int firstDay = QDate(date.year(), 1, 1).dayOfWeek() % 7;
    return (date.dayOfYear() - 1 + firstDay) / 7 + 1;
}

QString Half(const DateContext& context, QStringView morning, QStringView evening) {
    return (context.moment.time.hour() < 12 ? morning : evening).toString();
}

using ShowPart = QString (*)(const DateContext&);

QString Day(const DateContext& c) {
    return QString::number(c.moment.date.day());
}
QString Day2(const DateContext& c) {
    return Padded(c.moment.date.day(), 2);
}
QString Day3(const DateContext& c) {
    return DayName(c, QLocale::ShortFormat);
}
QString Day4(const DateContext& c) {
    return DayName(c, QLocale::LongFormat);
}
QString Day5(const DateContext& c) {
    return ShortDate(c.moment.date, c.conventions);
}
QString Day6(const DateContext& c) {
    return c.conventions.locale.toString(c.moment.date, QLocale::LongFormat);
}
QString Minute(const DateContext& c) {
    return QString::number(c.moment.time.minute());
}
QString Minute2(const DateContext& c) {
    return Padded(c.moment.time.minute(), 2);
}
QString Month(const DateContext& c) {
    return c.isAfterHour ? Minute(c) : QString::number(c.moment.date.month());
}
QString Month2(const DateContext& c) {
    return c.isAfterHour ? Minute2(c) : Padded(c.moment.date.month(), 2);
}
QString Month3(const DateContext& c) {
    return MonthName(c, QLocale::ShortFormat);
}
QString Month4(const DateContext& c) {
    return MonthName(c, QLocale::LongFormat);
}
QString DayOfYear(const DateContext& c) {
    return QString::number(c.moment.date.dayOfYear());
}
QString Year2(const DateContext& c) {
    return Padded(c.moment.date.year() % 100, 2);
}
QString Year4(const DateContext& c) {
    return Padded(c.moment.date.year(), 4);
}
QString Quarter(const DateContext& c) {
    return QString::number((c.moment.date.month() + 2) / 3);
}
QString WeekDay(const DateContext& c) {
    return QString::number(c.moment.date.dayOfWeek() % 7 + 1);
}
QString Week(const DateContext& c) {
    return QString::number(WeekOf(c.moment.date));
}
QString Hour(const DateContext& c) {
    return QString::number(HourOf(c));
}
QString Hour2(const DateContext& c) {
    return Padded(HourOf(c), 2);
}
QString Second(const DateContext& c) {
    return QString::number(c.moment.time.second());
}
QString Second2(const DateContext& c) {
    return Padded(c.moment.time.second(), 2);
}
QString Time(const DateContext& c) {
    return LongTime(c.moment.time, c.conventions);
}
QString General(const DateContext& c) {
    return GeneralDate(c.moment, c.conventions);
}
QString HalfWords(const DateContext& c) {
    return Half(c, c.conventions.locale.amText(), c.conventions.locale.pmText());
}
QString UpperHalf(const DateContext& c) {
    return Half(c, u"AM", u"PM");
}
QString LowerHalf(const DateContext& c) {
    return Half(c, u"am", u"pm");
}
QString UpperHalfLetter(const DateContext& c) {
    return Half(c, u"A", u"P");
}
QString LowerHalfLetter(const DateContext& c) {
    return Half(c, u"a", u"p");
}

enum class PartKind { Plain, DayNumber, Hour, HalfOfDay };

struct MaskPart {
    QStringView letters;
    ShowPart show;
    PartKind kind = PartKind::Plain;
    Qt::CaseSensitivity sensitivity = Qt::CaseInsensitive;
};

// The longest that fits is taken, so longer ones stand before their beginnings.
constexpr std::array kParts{
    MaskPart{u"AM/PM", UpperHalf, PartKind::HalfOfDay, Qt::CaseSensitive},
    MaskPart{u"am/pm", LowerHalf, PartKind::HalfOfDay, Qt::CaseSensitive},
    MaskPart{u"AM/PM", UpperHalf, PartKind::HalfOfDay},
    MaskPart{u"AMPM", HalfWords, PartKind::HalfOfDay},
    MaskPart{u"A/P", UpperHalfLetter, PartKind::HalfOfDay, Qt::CaseSensitive},
    MaskPart{u"a/p", LowerHalfLetter, PartKind::HalfOfDay, Qt::CaseSensitive},
    MaskPart{u"dddddd", Day6},
    MaskPart{u"ddddd", Day5},
    MaskPart{u"dddd", Day4},
    MaskPart{u"ddd", Day3},
    MaskPart{u"dd", Day2, PartKind::DayNumber},
    MaskPart{u"d", Day, PartKind::DayNumber},
    MaskPart{u"mmmm", Month4},
    MaskPart{u"mmm", Month3},
    MaskPart{u"mm", Month2},
    MaskPart{u"m", Month},
    MaskPart{u"yyyy", Year4},
    MaskPart{u"yy", Year2},
    MaskPart{u"y", DayOfYear},
    MaskPart{u"hh", Hour2, PartKind::Hour},
    MaskPart{u"h", Hour, PartKind::Hour},
    MaskPart{u"nn", Minute2},
    MaskPart{u"n", Minute},
    MaskPart{u"ss", Second2},
    MaskPart{u"s", Second},
    MaskPart{u"ttttt", Time},
    MaskPart{u"ww", Week},
    MaskPart{u"w", WeekDay},
    MaskPart{u"q", Quarter},
    MaskPart{u"c", General},
};

QChar Folded(QChar letter) {
    return letter >= u'A' && letter <= u'Z' ? QChar(letter.unicode() | 0x20) : letter;
}

bool StartsWith(MaskSection section, const MaskPart& part) {
    const auto isSame = [&part](QChar letter, const MaskCharacter& here) {
        if (here.isFixed) return false;
        return letter == here.character ||
               (part.sensitivity == Qt::CaseInsensitive && Folded(letter) == Folded(here.character));
    };
    return section.size() >= static_cast<std::size_t>(part.letters.size()) &&
           std::equal(part.letters.begin(), part.letters.end(), section.begin(), isSame);
}

const MaskPart* PartAt(MaskSection section) {
    const auto* found = std::find_if(kParts.begin(), kParts.end(),
                                     [&](const MaskPart& part) { return StartsWith(section, part); });
    return found == kParts.end() ? nullptr : found;
}

// Walks a section part by part; `onPart` gets a part, `onCharacter` what stands between.
template <typename OnPart, typename OnCharacter>
void WalkParts(MaskSection section, OnPart&& onPart, OnCharacter&& onCharacter) {
    while (!section.empty()) {
        if (const MaskPart* part = PartAt(section)) {
            onPart(*part);
            section = section.subspan(static_cast<std::size_t>(part->letters.size()));
        } else {
            onCharacter(section.front());
            section = section.subspan(1);
        }
    }
}

bool HasKind(MaskSection section, PartKind kind) {
    bool isThere = false;
    WalkParts(
        section, [&](const MaskPart& part) { isThere = isThere || part.kind == kind; },
        [](const MaskCharacter&) {});
    return isThere;
}

// What the locale writes between hours and minutes.
QChar TimeSeparator(const QLocale& locale) {
    const QString format = locale.timeFormat(QLocale::ShortFormat);
    const qsizetype minutes = format.indexOf(u'm');
    return minutes > 0 && !format.at(minutes - 1).isLetter() ? format.at(minutes - 1) : QChar(u':');
}

QString Between(const MaskCharacter& here, const Conventions& conventions) {
    if (here.Is(u'/')) return conventions.SystemDateSeparator;
    return here.Is(u':') ? TimeSeparator(conventions.locale) : here.character;
}

}  // namespace

bool HasDateParts(MaskSection section) {
    bool hasParts = false;
    WalkParts(
        section, [&](const MaskPart&) { hasParts = true; }, [](const MaskCharacter&) {});
    return hasParts;
}

QString FormatMoment(const Moment& moment, MaskSection section, const Conventions& conventions) {
    DateContext context{moment, conventions, HasKind(section, PartKind::HalfOfDay),
                        HasKind(section, PartKind::DayNumber)};
    QString text;
    const auto onPart = [&](const MaskPart& part) {
        text += part.show(context);
        context.isAfterHour = part.kind == PartKind::Hour;
    };
    WalkParts(section, onPart, [&](const MaskCharacter& here) { text += Between(here, conventions); });
    return text;
}

bool IsConventionMask(QStringView mask) {
    const auto isLetter = [](QChar character) { return character.isLetterOrNumber() || character == u'"'; };
    const bool hasOthers = std::any_of(mask.begin(), mask.end(), [&](QChar character) {
        return character == u'\\' || character == u'#' || character == u'@' ||
               (isLetter(character) && !QStringView(u"DMCY").contains(character));
    });
    const qsizetype years = mask.count(u'C') + mask.count(u'Y');
    return !hasOthers && years == 1 && mask.count(u'D') <= 1 && mask.count(u'M') == 1;
}

QString FormatByConventionMask(QDate date, const QString& mask) {
    Conventions conventions;
    conventions.SystemDateMask = mask;
    return ShortDate(date, conventions);
}

QString GeneralDate(const Moment& moment, const Conventions& conventions) {
    const QString date = ShortDate(moment.date, conventions);
    if (moment.time == QTime(0, 0))
        return moment.date == EmptyDate() ? LongTime(moment.time, conventions) : date;
    const QString time = LongTime(moment.time, conventions);
    return moment.date == EmptyDate() ? time : date + u' ' + time;
}

QString LongTime(QTime time, const Conventions& conventions) {
    const bool isTwelveHours =
        conventions.locale.timeFormat(QLocale::ShortFormat).contains(u'a', Qt::CaseInsensitive);
    const std::vector<MaskCharacter> mask = ReadMask(isTwelveHours ? u"h:nn:ss AM/PM" : u"hh:nn:ss");
    return FormatMoment({EmptyDate(), time}, mask, conventions);
}

}  // namespace sheetwright

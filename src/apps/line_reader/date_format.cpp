#include "apps/line_reader/date_format.h"

#include <algorithm>
#include <array>

namespace sheetwright {

namespace {

constexpr QStringView kLetters = u"dMy";

struct Numbers {
    int day = 0;
    int month = 0;
    int year = 0;
};

// Cuts the run of equal letters at the front of `format`.
QStringView TakeRun(QStringView& format) {
    qsizetype length = 1;
    while (length < format.size() && format[length] == format.front())
        ++length;
    const QStringView run = format.first(length);
    format = format.sliced(length);
    return run;
}

bool IsDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

// A number of at least `least` and at most `most` digits at the front of `text`, which is cut.
std::optional<int> TakeNumber(QStringView& text, qsizetype least, qsizetype most) {
    qsizetype length = 0;
    while (length < std::min(most, text.size()) && IsDigit(text[length]))
        ++length;
    if (length < least) return std::nullopt;
    const int number = text.first(length).toInt();
    text = text.sliced(length);
    return number;
}

std::optional<int> TakeMonthName(QStringView& text) {
    constexpr std::array<QStringView, 12> kMonths{u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                                  u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
    const auto found = std::ranges::find_if(
        kMonths, [&](QStringView month) { return text.startsWith(month, Qt::CaseInsensitive); });
    if (found == kMonths.end()) return std::nullopt;
    text = text.sliced(found->size());
    return static_cast<int>(found - kMonths.begin()) + 1;
}

bool TakePart(QStringView& text, QStringView run, Numbers& numbers) {
    if (run == u"MMM") {
        const std::optional<int> month = TakeMonthName(text);
        numbers.month = month.value_or(0);
        return month.has_value();
    }
    const std::optional<int> number = TakeNumber(text, run.size(), std::max<qsizetype>(run.size(), 2));
    if (!number) return false;
    if (run.front() == u'd') numbers.day = *number;
    if (run.front() == u'M') numbers.month = *number;
    if (run.front() == u'y') numbers.year = run.size() == 2 ? 2'000 + *number : *number;
    return true;
}

}  // namespace

bool IsDateFormat(QStringView format) {
    constexpr std::array<QStringView, 7> kRuns{u"d", u"dd", u"M", u"MM", u"MMM", u"yy", u"yyyy"};
    QString found;
    while (!format.isEmpty()) {
        const QStringView run = TakeRun(format);
        if (!kLetters.contains(run.front())) continue;
        if (std::ranges::find(kRuns, run) == kRuns.end() || found.contains(run.front())) return false;
        found += run.front();
    }
    return found.size() == kLetters.size();
}

std::optional<QDate> DateOfFormat(QStringView text, QStringView format) {
    Numbers numbers;
    const bool isOpenAtEnd = format.endsWith(u'*');
    if (isOpenAtEnd) format.chop(1);
    while (!format.isEmpty()) {
        const QStringView run = TakeRun(format);
        if (kLetters.contains(run.front())) {
            if (!TakePart(text, run, numbers)) return std::nullopt;
        } else if (text.startsWith(run)) {
            text = text.sliced(run.size());
        } else {
            return std::nullopt;
        }
    }
    const QDate date(numbers.year, numbers.month, numbers.day);
    if (!date.isValid() || numbers.year == 0 || (!text.isEmpty() && !isOpenAtEnd)) return std::nullopt;
    return date;
}

}  // namespace sheetwright

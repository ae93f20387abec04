#include "document/record_rules.h"

#include "core/keyed_collection.h"
#include "core/quoted.h"
#include "document/design_records.h"
#include "document/form_outline.h"

#include <QLocale>

#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <unordered_map>

namespace sheetwright {

namespace {

enum class Form { Text, FilledText, Number, Integer, Boolean };

struct KeyRule {
    QStringView key;
    Form form = Form::Text;
    bool isRequired = true;
    double low = std::numeric_limits<double>::lowest();
    double high = std::numeric_limits<double>::max();
};

constexpr double kInt16 = 32767;
constexpr double kLowestColour = -2147483648.0;
constexpr double kHighestColour = 4294967295.0;
constexpr double kTwips = 2147483647;
constexpr double kSmallestFont = 0.1;  // points
constexpr double kLargestFont = 2160;

// Keys distinguish capitals, all but this one.
constexpr QStringView kAnyCapitals = u"ReadOnly";

constexpr KeyRule Text(QStringView key) {
    return {key, Form::Text};
}
constexpr KeyRule FilledText(QStringView key) {
    return {key, Form::FilledText};
}
constexpr KeyRule Boolean(QStringView key) {
    return {key, Form::Boolean};
}
constexpr KeyRule Integer(QStringView key, double low, double high) {
    return {key, Form::Integer, true, low, high};
}
constexpr KeyRule Colour(QStringView key) {
    return Integer(key, kLowestColour, kHighestColour);
}
constexpr KeyRule Optional(KeyRule rule) {
    rule.isRequired = false;
    return rule;
}

constexpr KeyRule kExtent[] = {
    {u"AbsLeft", Form::Number, true, -kTwips, kTwips},
    {u"AbsTop", Form::Number, true, -kTwips, kTwips},
    {u"Width", Form::Number, true, 0, kTwips},
    {u"Height", Form::Number, true, 0, kTwips},
    Optional(Boolean(u"Printable")),
};
constexpr KeyRule kFont[] = {
    FilledText(u"FontName"),    {u"FontSize", Form::Number, true, kSmallestFont, kLargestFont},
    Boolean(u"FontBold"),       Boolean(u"FontItalic"),
    Boolean(u"FontStrikethru"), Boolean(u"FontUnderline"),
    Colour(u"ForeColor"),
};
constexpr KeyRule kPage[] = {
    Optional(Text(u"Title")),      Optional(Colour(u"BackGround")), Optional(Text(u"Drivers")),
    Optional(Text(u"PrePrinted")), Integer(u"Orientation", 1, 2),   Integer(u"PaperSize", 1, kInt16),
};
constexpr KeyRule kFrame[] = {Integer(u"BorderStyle", -kInt16 - 1, kInt16)};
constexpr KeyRule kOutline[] = {
    Integer(u"BorderType", 1, 6),
    Integer(u"BorderWidth", 0, kInt16),
    Colour(u"BorderColor"),
};
constexpr KeyRule kLine[] = {Integer(u"Direction", 0, 1)};
constexpr KeyRule kShape[] = {
    Colour(u"FillColor"),
    Integer(u"FillStyle", 0, 7),
    Integer(u"Shape", 0, 3),
};
constexpr KeyRule kLabel[] = {
    Integer(u"BorderStyle", -kInt16 - 1, kInt16),
    Integer(u"Alignment", 0, 2),
    Text(u"Caption"),
};
constexpr KeyRule kField[] = {
    FilledText(u"Name"),
    Optional(Integer(u"FieldType", 0, kInt16)),
    Boolean(u"ReadOnly"),
    Optional(Boolean(u"Visible")),
    Integer(u"TabIdx", -kInt16 - 1, kInt16),
    Optional(Text(u"Formula")),
    Optional(Text(u"List")),
    Optional(Text(u"DataSource")),
    Optional(Text(u"Format")),
    Optional(Integer(u"KeyLevel", 0, kInt16)),
    Optional(Integer(u"MultiRecordIndex", 0, kInt16)),
    Optional(Boolean(u"NewLineOnChange")),
    Optional(Boolean(u"NewLineOnReoccur")),
    Optional(Boolean(u"NewPageOnChange")),
    Optional(Boolean(u"NewPageOnReoccur")),
};
// What only a field shown as a text box needs.
constexpr KeyRule kTextField[] = {
    Boolean(u"WordWrap"),
    Integer(u"Alignment", 0, 2),
    Integer(u"BorderStyle", 0, 2),
};
constexpr KeyRule kCheckBox[] = {
    FilledText(u"Name"),
    Integer(u"Style", 0, 255),
    Text(u"Caption"),
    Integer(u"States", 1, 4),
    Integer(u"TabIdx", -kInt16 - 1, kInt16),
};
constexpr KeyRule kPicture[] = {
    Integer(u"BorderStyle", -kInt16 - 1, kInt16),
    Text(u"Picture"),
    Optional(Boolean(u"Stretch")),
};

using RuleGroup = std::span<const KeyRule>;

struct KindRules {
    QStringView kind;
    RuleGroup groups[3];
};

constexpr KindRules kKinds[] = {
    {u"PAGE", {kPage}},
    {u"FRAM", {kFrame, kExtent}},
    {u"LINE", {kLine, kOutline, kExtent}},
    {u"SHAP", {kShape, kOutline, kExtent}},
    {u"LABE", {kLabel, kFont, kExtent}},
    {u"FIEL", {kField, kFont, kExtent}},
    {u"CHEC", {kCheckBox, kFont, kExtent}},
    {u"PICT", {kPicture, kExtent}},
};

using KeyMap = std::unordered_map<QStringView, QStringView, CaseInsensitiveHash, CaseInsensitiveEqual>;
using Report = std::function<void(const QString&)>;

bool IsTruthWord(QStringView value, const TruthWords& words) {
    return value.compare(u"True", Qt::CaseInsensitive) == 0 ||
           value.compare(u"False", Qt::CaseInsensitive) == 0 || value == words.TrueWord ||
           value == words.FalseWord || FormNumber(value).has_value();
}

QString NumberFault(const KeyRule& rule, QStringView value) {
    const std::optional<double> number = FormNumber(value);
    if (!number) return QStringLiteral("is no number");
    if (rule.form == Form::Integer && *number != std::floor(*number))
        return QStringLiteral("is no whole number");
    if (*number >= rule.low && *number <= rule.high) return {};
    return QStringLiteral("is out of range (%1 to %2)").arg(rule.low, 0, 'g', 10).arg(rule.high, 0, 'g', 10);
}

// What is wrong with a value; empty when nothing is.
QString Fault(const KeyRule& rule, QStringView value, const TruthWords& words) {
    switch (rule.form) {
        case Form::Text:
            return {};
        case Form::FilledText:
            return value.isEmpty() ? QStringLiteral("is empty") : QString();
        case Form::Boolean:
            return IsTruthWord(value, words) ? QString() : QStringLiteral("is neither True nor False");
        case Form::Number:
        case Form::Integer:
            return NumberFault(rule, value);
    }
    return {};
}

void CheckGroup(RuleGroup group, const KeyMap& values, const TruthWords& words, const Report& report) {
    for (const KeyRule& rule : group) {
        const auto found = values.find(rule.key);
        if (found == values.end()) {
            if (rule.isRequired) report(QStringLiteral("%1 is missing").arg(rule.key));
            continue;
        }
        if (found->first != rule.key && rule.key != kAnyCapitals)
            report(QStringLiteral("%1 is written %2").arg(rule.key, Quoted(found->first)));
        const QString fault = Fault(rule, found->second, words);
        if (!fault.isEmpty()) report(QStringLiteral("%1 %2 %3").arg(rule.key, Quoted(found->second), fault));
    }
}

}  // namespace

std::optional<double> FormNumber(QStringView text) {
    QString plain = text.trimmed().toString();
    if (const qsizetype comma = plain.indexOf(u','); comma >= 0) plain[comma] = u'.';
    bool isNumber = false;
    const double number = QLocale::c().toDouble(plain, &isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

void CheckKeys(QStringView kind, const std::vector<KeyLine>& keys, const TruthWords& words,
               const Report& report) {
    KeyMap values;
    for (const KeyLine& line : keys)
        // A second Title is told with the page's titles.
        if (!values.emplace(line.key, line.value).second && line.key != u"Title")
            report(QStringLiteral("%1 stands twice").arg(Shortened(line.key)));
    for (const KindRules& rules : kKinds) {
        if (rules.kind != kind) continue;
        for (const RuleGroup group : rules.groups)
            CheckGroup(group, values, words, report);
    }
    const auto fieldType = values.find(QStringView(u"FieldType"));
    if (kind == u"FIEL" && fieldType != values.end() &&
        IsTextFieldType(FormNumber(fieldType->second).value_or(0)))
        CheckGroup(kTextField, values, words, report);
}

}  // namespace sheetwright

#include "apps/line_reader/ini_text.h"

#include "core/failure.h"
#include "core/keyed_collection.h"
#include "core/text.h"
#include "import/csv_codec.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_set>
#include <utility>

namespace sheetwright {

namespace {

constexpr double kLeastSeconds = 0.05;
constexpr double kMostSeconds = 3'600;

bool IsSame(QStringView name, QStringView other) {
    return name.compare(other, Qt::CaseInsensitive) == 0;
}

[[noreturn]] void RefuseLine(int line, const QString& text) {
    RefuseConfiguration(QStringLiteral("line %1: %2").arg(QString::number(line), text));
}

class IniParser {
  public:
    void Take(QStringView line, int number) {
        if (line.startsWith(u'[') && line.endsWith(u']')) {
            AddSection(line.sliced(1, line.size() - 2).trimmed(), number);
        } else {
            AddEntry(line, number);
        }
    }
    [[nodiscard]] std::vector<IniSection> TakeSections() { return std::move(m_sections); }

  private:
    using Names = std::unordered_set<QString, CaseInsensitiveHash, CaseInsensitiveEqual>;

    void AddSection(QStringView name, int line) {
        if (!m_names.insert(name.toString()).second)
            RefuseLine(line, QStringLiteral("section [%1] is given twice").arg(name));
        m_keys.clear();
        m_sections.push_back({name.toString(), {}});
    }
    void AddEntry(QStringView text, int line) {
        const QStringView key = KeyOf(text).trimmed();
        if (key.isEmpty()) RefuseLine(line, QStringLiteral("\"%1\" is no \"key = value\"").arg(text));
        if (m_sections.empty())
            RefuseLine(line, QStringLiteral("\"%1\" stands before the first section").arg(key));
        if (!m_keys.insert(key.toString()).second)
            RefuseLine(line, QStringLiteral("\"%1\" is given twice").arg(key));
        m_sections.back().entries.push_back({key.toString(), ValueOf(text).trimmed().toString(), line});
    }

    std::vector<IniSection> m_sections;
    Names m_names;  // of the sections
    Names m_keys;   // of the last one
};

std::optional<char> ControlCharacter(QChar letter) {
    switch (letter.unicode()) {
        case u'r':
            return '\r';
        case u'n':
            return '\n';
        case u't':
            return '\t';
        case u'\\':
            return '\\';
        default:
            return std::nullopt;
    }
}

// The byte of the escape at the front of `rest`, which is cut off; none when it makes no sense.
std::optional<char> TakeEscape(QStringView& rest) {
    if (rest.size() < 2) return std::nullopt;
    if (const std::optional<char> control = ControlCharacter(rest[1])) {
        rest = rest.sliced(2);
        return control;
    }
    bool isNumber = rest[1] == u'x' && rest.size() >= 4;
    const uint number = isNumber ? rest.sliced(2, 2).toUInt(&isNumber, 16) : 0;
    if (!isNumber) return std::nullopt;
    rest = rest.sliced(4);
    return static_cast<char>(number);
}

std::optional<QByteArray> Resolved(QStringView text, const CsvCodec& codec) {
    QByteArray bytes;
    while (!text.isEmpty()) {
        const qsizetype plain = text.indexOf(u'\\');
        const std::optional<QByteArray> encoded = codec.Encode(plain < 0 ? text : text.first(plain));
        if (!encoded) return std::nullopt;
        bytes += *encoded;
        if (plain < 0) break;
        text = text.sliced(plain);
        const std::optional<char> escaped = TakeEscape(text);
        if (!escaped) return std::nullopt;
        bytes += *escaped;
    }
    return bytes;
}

}  // namespace

void RefuseConfiguration(const QString& text) {
    throw Failure(failure::kInvalidFormat, QStringLiteral("The configuration makes no sense: %1").arg(text));
}

std::vector<IniSection> ParseIni(QStringView text) {
    IniParser parser;
    for (int number = 1; !text.isEmpty(); ++number) {
        const QStringView line = TakeLine(text).trimmed();
        if (!line.isEmpty() && !line.startsWith(u';') && !line.startsWith(u'#')) parser.Take(line, number);
    }
    return parser.TakeSections();
}

SectionReader::SectionReader(const std::vector<IniSection>& sections, QStringView name)
    : m_name(name.toString()) {
    const auto found =
        std::ranges::find_if(sections, [&](const IniSection& section) { return IsSame(section.name, name); });
    if (found != sections.end()) m_entries = found->entries;
}

const IniEntry* SectionReader::Find(QStringView key) const {
    const auto found =
        std::ranges::find_if(m_entries, [&](const IniEntry& entry) { return IsSame(entry.key, key); });
    return found == m_entries.end() ? nullptr : &*found;
}

QString SectionReader::Text(QStringView key, const QString& fallback) {
    m_asked << key.toString();
    const IniEntry* const entry = Find(key);
    return entry == nullptr || entry->value.isEmpty() ? fallback : entry->value;
}

int SectionReader::Number(QStringView key, int fallback, int least, int most) {
    bool isNumber = true;
    const int number = Text(key, QString::number(fallback)).toInt(&isNumber);
    if (!isNumber || number < least || number > most)
        Refuse(key, QStringLiteral("a number from %1 to %2").arg(least).arg(most));
    return number;
}

int SectionReader::Milliseconds(QStringView key, int fallbackSeconds) {
    bool isNumber = true;
    const double seconds = Text(key, QString::number(fallbackSeconds)).toDouble(&isNumber);
    if (!isNumber || !(seconds >= kLeastSeconds) || seconds > kMostSeconds)
        Refuse(key, QStringLiteral("seconds from %1 to %2").arg(kLeastSeconds).arg(kMostSeconds));
    return static_cast<int>(std::lround(seconds * 1'000));
}

qsizetype SectionReader::Choice(QStringView key, const QStringList& words, qsizetype fallback) {
    const QString word = Text(key, words[fallback]);
    const auto found = std::ranges::find_if(words, [&](const QString& known) { return IsSame(known, word); });
    if (found == words.end()) Refuse(key, QStringLiteral("one of %1").arg(words.join(QStringLiteral(", "))));
    return found - words.begin();
}

QByteArray SectionReader::Bytes(QStringView key, const QString& fallback, bool isUtf8) {
    const CsvCodec codec(isUtf8 ? CsvEncoding::Utf8 : CsvEncoding::CodePage);
    const std::optional<QByteArray> bytes = Resolved(Text(key, fallback), codec);
    if (!bytes) Refuse(key, QStringLiteral("text of the encoding, with \\r \\n \\t \\\\ or \\xNN in it"));
    return *bytes;
}

void SectionReader::RefuseOthers() const {
    for (const IniEntry& entry : m_entries)
        if (!m_asked.contains(entry.key, Qt::CaseInsensitive))
            RefuseLine(entry.line,
                       QStringLiteral("\"%1\" is nothing that [%2] knows").arg(entry.key, m_name));
}

void SectionReader::Refuse(QStringView key, const QString& expected) const {
    const IniEntry* const entry = Find(key);
    const QString text = QStringLiteral("\"%1\" of [%2] must be %3").arg(key, m_name, expected);
    if (entry == nullptr) RefuseConfiguration(text);
    RefuseLine(entry->line, text);
}

}  // namespace sheetwright

#include "translate/dictionary.h"

#include "core/failure.h"
#include "core/paths.h"
#include "core/text.h"

#include <algorithm>
#include <utility>

namespace sheetwright {

namespace {

constexpr QChar kParameterSeparator = u'\u00A6';

bool IsMarkerDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

QString WithMarkersFilled(const QString& text, const QString& parameters) {
    QString filled;
    filled.reserve(text.size() + parameters.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isMarker = text[at] == u'%' && at + 1 < text.size() && IsMarkerDigit(text[at + 1]);
        if (isMarker) {
            filled += GetParam(parameters, text[++at].unicode() - u'0');
        } else {
            filled += text[at];
        }
    }
    return filled;
}

}  // namespace

QString GetParam(const QString& parameters, int n) {
    const QStringView all(parameters);
    qsizetype start = 0;
    for (int value = 1; value < n; ++value) {
        const qsizetype separator = all.indexOf(kParameterSeparator, start);
        if (separator < 0) break;
        start = separator + 1;
    }
    const qsizetype end = all.indexOf(kParameterSeparator, start);
    return all.sliced(start, (end < 0 ? all.size() : end) - start).toString();
}

Dictionary::Dictionary() : m_dictTable(std::make_unique<CsvTable>()) {}

bool Dictionary::IsOpen() const {
    return !m_dictTable->FileName().isEmpty();
}

void Dictionary::Load(const QString& path) {
    if (!FileExists(path)) return;
    auto table = std::make_unique<CsvTable>();
    table->SetFileName(path);
    const QString english = QStringLiteral("ENGLISH");
    FirstRecords index;
    // A file without that column translates nothing.
    Ignoring([&] {
        table->Sort(english);
        index = Index(*table, english);
    });
    m_dictTable = std::move(table);
    m_dictIndex = std::move(index);
}

Dictionary::FirstRecords Dictionary::Index(CsvTable& table, const QString& column) {
    FirstRecords index;
    const CsvColumn& texts = table.Columns().At(column);
    for (table.MoveFirst(); !table.AtEnd(); table.MoveNext()) {
        const QString text = texts.Value();
        if (!text.isEmpty()) index.try_emplace(text.front().unicode(), table.Position());
    }
    return index;
}

QString Dictionary::Lookup(const QString& text) const {
    const auto first = m_dictIndex.find(text.front().unicode());
    if (first == m_dictIndex.end()) return text;
    CsvTable& table = *m_dictTable;
    const CsvColumn& english = table.Columns().At(QStringLiteral("ENGLISH"));
    for (table.SetPosition(first->second); !table.AtEnd(); table.MoveNext()) {
        const QString entry = english.Value();
        if (entry.isEmpty() || entry.front() != text.front()) break;
        if (entry != text) continue;
        const QString translation = table.Columns().At(2).Value();
        return TrimBlanks(translation).isEmpty() ? text : translation;
    }
    return text;
}

QString Dictionary::Translate(const QString& text, const QString& parameters) const {
    const QString result = text.isEmpty() || !IsOpen() ? text : Lookup(text);
    return result.contains(QStringLiteral("%1")) ? WithMarkersFilled(result, parameters) : result;
}

}  // namespace sheetwright

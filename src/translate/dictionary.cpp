#include "translate/dictionary.h"

#include "core/failure.h"
#include "core/paths.h"
#include "core/text.h"
#include "import/csv_table.h"

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

// Translations by their English; the first of equal texts counts. Raises 5 without that column.
QHash<QString, QString> TranslationsIn(CsvTable& table) {
    const CsvColumn& english = table.Columns().At(QStringLiteral("ENGLISH"));
    const bool hasTranslations = table.Columns().Count() > 1;
    QHash<QString, QString> translations;
    for (; !table.AtEnd(); table.MoveNext()) {
        const QString text = english.Value();
        if (!translations.contains(text))
            translations.insert(text, hasTranslations ? table.Columns().At(2).Value() : QString());
    }
    return translations;
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

void Dictionary::Load(const QString& path) {
    if (!FileExists(path)) return;
    CsvTable table;
    table.SetFileName(path);
    QHash<QString, QString> translations;
    // A file without that column translates nothing.
    Ignoring([&] { translations = TranslationsIn(table); });
    m_translations = std::move(translations);
    m_hasTranslations = table.Columns().Count() > 1;
    m_isOpen = true;
}

QString Dictionary::Lookup(const QString& text) const {
    const auto translation = m_translations.constFind(text);
    if (translation == m_translations.constEnd()) return text;
    if (!m_hasTranslations) throw Failure(failure::kSubscript);
    return TrimBlanks(*translation).isEmpty() ? text : *translation;
}

QString Dictionary::Translate(const QString& text, const QString& parameters) const {
    const QString result = text.isEmpty() ? text : Lookup(text);
    return result.contains(QStringLiteral("%1")) ? WithMarkersFilled(result, parameters) : result;
}

}  // namespace sheetwright

// The German dictionary against the texts that the sources hand to `Translate`.

#include "core/paths.h"
#include "import/csv_table.h"
#include "support/test_application.h"
#include "translate/dictionary.h"

#include <QDirIterator>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

namespace sheetwright {

namespace {

// What reaches `Translate` by a variable: the titles of the deployments.
QSet<QString> TextsByVariable() {
    return {QStringLiteral("Tolvane Quillon Sheetwright"),
            QStringLiteral("Tolvane Ketterlin Professional Viewer"), QStringLiteral("Tolvane Reports")};
}

QString Unescaped(const QString& literal) {
    QString text;
    for (qsizetype at = 0; at < literal.size(); ++at) {
        if (literal[at] != u'\\' || at + 1 == literal.size()) {
            text += literal[at];
            continue;
        }
        const QChar escape = literal[++at];
        if (escape == u'u') {
            text += QChar(literal.sliced(at + 1, 4).toUShort(nullptr, 16));
            at += 4;
        } else {
            text += escape == u'n' ? u'\n' : escape == u'r' ? u'\r' : escape == u't' ? u'\t' : escape;
        }
    }
    return text;
}

// Where the first argument that starts at `at` ends: a comma or bracket that is in no quotes and brackets.
qsizetype EndOfArgument(const QString& source, qsizetype at) {
    bool isQuoted = false;
    for (int depth = 0; at < source.size(); ++at) {
        const QChar character = source[at];
        if (isQuoted && character == u'\\') {
            ++at;
        } else if (character == u'"') {
            isQuoted = !isQuoted;
        } else if (!isQuoted) {
            if (depth == 0 && (character == u',' || character == u')')) return at;
            if (character == u'(') ++depth;
            if (character == u')') --depth;
        }
    }
    return at;
}

// Each literal of an argument; pieces that stand side by side are one.
void CollectLiterals(const QString& argument, QSet<QString>& texts) {
    static const QRegularExpression literals(
        QStringLiteral(R"(QStringLiteral\(((?:\s*"(?:[^"\\]|\\.)*"\s*)+)\))"));
    static const QRegularExpression pieces(QStringLiteral(R"re("((?:[^"\\]|\\.)*)")re"));
    for (const QRegularExpressionMatch& literal : literals.globalMatch(argument)) {
        QString text;
        for (const QRegularExpressionMatch& piece : pieces.globalMatch(literal.captured(1)))
            text += Unescaped(piece.captured(1));
        texts.insert(text);
    }
}

QSet<QString> TextsOfTheSources() {
    QSet<QString> texts;
    QDirIterator files(QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/src"),
                       {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                       QDirIterator::Subdirectories);
    const QString call = QStringLiteral("Translate(");
    while (files.hasNext()) {
        const QString source = QString::fromUtf8(ReadWholeFile(files.next()));
        for (qsizetype at = source.indexOf(call); at >= 0; at = source.indexOf(call, at)) {
            at += call.size();
            CollectLiterals(source.sliced(at, EndOfArgument(source, at) - at), texts);
        }
    }
    return texts;
}

// The markers of a text, in alphabetical order.
QStringList Markers(const QString& text) {
    static const QRegularExpression marker(QStringLiteral("%[0-9]"));
    QStringList markers;
    for (const QRegularExpressionMatch& match : marker.globalMatch(text))
        markers << match.captured();
    markers.sort();
    return markers;
}

class German : public ::testing::Test {
  protected:
    German() : m_texts(TextsOfTheSources() | TextsByVariable()) {
        CsvTable table;
        table.SetFileName(m_path);
        m_header = {table.Columns().At(1).Name(), table.Columns().At(2).Name()};
        for (; !table.AtEnd(); table.MoveNext()) {
            const QString english = table.Columns().At(1).Value();
            if (m_entries.contains(english)) ADD_FAILURE() << "twice: " << english.toStdString();
            m_entries.insert(english, table.Columns().At(2).Value());
        }
    }

    const QString m_path = QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/share/languages/de/Sheetwright.DIC");
    QSet<QString> m_texts;
    QStringList m_header;
    QMap<QString, QString> m_entries;
};

TEST_F(German, SourcesHoldTexts) {
    EXPECT_TRUE(m_texts.contains(QStringLiteral("Cannot write to Temporary Directory")));
    EXPECT_TRUE(m_texts.contains(QStringLiteral("Error %1: %2")));
}

TEST_F(German, HeaderNamesTheTwoColumns) {
    EXPECT_EQ(m_header, QStringList({QStringLiteral("ENGLISH"), QStringLiteral("TRANSLATION")}));
}

TEST_F(German, EveryTextOfTheProgramHasAnEntry) {
    for (const QString& text : m_texts)
        EXPECT_TRUE(m_entries.contains(text)) << text.toStdString();
}

TEST_F(German, EveryEntryIsUsed) {
    for (auto entry = m_entries.cbegin(); entry != m_entries.cend(); ++entry)
        EXPECT_TRUE(m_texts.contains(entry.key())) << entry.key().toStdString();
}

TEST_F(German, EveryTranslationHasTheMarkersOfItsText) {
    for (auto entry = m_entries.cbegin(); entry != m_entries.cend(); ++entry)
        EXPECT_EQ(Markers(entry.value()), Markers(entry.key())) << entry.key().toStdString();
}

TEST_F(German, EveryEntryIsFoundByTheDictionary) {
    Dictionary dictionary;
    dictionary.Load(m_path);
    for (auto entry = m_entries.cbegin(); entry != m_entries.cend(); ++entry) {
        EXPECT_FALSE(entry.value().trimmed().isEmpty()) << entry.key().toStdString();
        // With each marker filled by itself the text comes out as it stands.
        const QString parameters =
            QStringLiteral("%1\u00A6%2\u00A6%3\u00A6%4\u00A6%5\u00A6%6\u00A6%7\u00A6%8\u00A6%9");
        EXPECT_EQ(dictionary.Translate(entry.key(), parameters), entry.value());
    }
}

}  // namespace

}  // namespace sheetwright

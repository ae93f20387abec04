#include "import/driver_file.h"

#include "core/failure.h"
#include "core/keyed_collection.h"
#include "core/paths.h"
#include "core/text.h"
#include "import/csv_syntax.h"
#include "import/driver_folder.h"

#include <QFileInfo>
#include <QProcess>

#include <limits>
#include <unordered_map>

namespace sheetwright {

namespace {

constexpr qint64 kLongestFile = 1 << 20;  // bytes
constexpr int kLongestTimeLimit = 86'400;

// Values by section and key, with a "/" between. The first of equal keys counts.
using Keys = std::unordered_map<QString, QString, CaseInsensitiveHash, CaseInsensitiveEqual>;

bool IsComment(QStringView line) {
    return line.startsWith(u';') || line.startsWith(u'#');
}

QString SectionIn(QStringView line) {
    const qsizetype end = line.indexOf(u']');
    return line.sliced(1, (end < 0 ? line.size() : end) - 1).trimmed().toString();
}

Keys KeysOf(QStringView text) {
    Keys keys;
    QString section;
    while (!text.isEmpty()) {
        const QStringView line = TakeLine(text).trimmed();
        if (IsComment(line) || line.contains(QChar(u'\0'))) continue;
        if (line.startsWith(u'[')) {
            section = SectionIn(line);
        } else if (line.contains(u'=')) {
            const QString key = section + u'/' + KeyOf(line).trimmed().toString();
            keys.try_emplace(key, ValueOf(line).trimmed().toString());
        }
    }
    return keys;
}

Keys KeysOfFile(const QString& path) {
    Keys keys;
    if (QFileInfo(OnDisk(path)).size() > kLongestFile) return keys;
    Ignoring([&] { keys = KeysOf(DecodeFileText(ReadWholeFile(path))); });
    return keys;
}

QString TextOf(const Keys& keys, const QString& key) {
    const auto found = keys.find(key);
    return found == keys.end() ? QString() : found->second;
}

// A text that may stand in quotes.
QString PlainTextOf(const Keys& keys, const QString& key) {
    const QString text = TextOf(keys, key);
    const bool isQuoted = text.size() >= 2 && text.front() == u'"' && text.back() == u'"';
    return isQuoted ? text.sliced(1, text.size() - 2).trimmed() : text;
}

int NumberOf(const Keys& keys, const QString& key, int least, int most, int fallback) {
    bool isNumber = false;
    const int number = PlainTextOf(keys, key).toInt(&isNumber);
    return isNumber && number >= least && number <= most ? number : fallback;
}

QStringList ColumnsIn(const QString& list) {
    QStringList columns;
    const QByteArray bytes = list.toUtf8();
    CsvFieldReader fields(bytes.constData(), bytes.constData() + bytes.size());
    while (!bytes.isEmpty() && fields.HasNext()) {
        const CsvField field = fields.Next();
        const QByteArray value = field.isMixed ? UnquotedCsv(field.bytes) : field.bytes.toByteArray();
        const QString column = QString::fromUtf8(value).trimmed();
        if (!column.isEmpty()) columns << column;
    }
    return columns;
}

void TakeKeys(DriverFile& driver, const Keys& keys) {
    constexpr int kMost = std::numeric_limits<int>::max();
    const QString caption = PlainTextOf(keys, QStringLiteral("Driver/Name"));
    if (!caption.isEmpty()) driver.caption = caption;
    driver.icon = FileInFolder(driver.folder, PlainTextOf(keys, QStringLiteral("Driver/Icon")));
    driver.version = NumberOf(keys, QStringLiteral("Driver/Version"), 0, kMost, 0);
    driver.program = PlainTextOf(keys, QStringLiteral("Download/Program"));
    driver.arguments = QProcess::splitCommand(TextOf(keys, QStringLiteral("Download/Arguments")));
    driver.timeLimit = NumberOf(keys, QStringLiteral("Download/TimeLimit"), 1, kLongestTimeLimit,
                                DriverFile::kDefaultTimeLimit);
    driver.columns = ColumnsIn(TextOf(keys, QStringLiteral("Delivered/Columns")));
    driver.minimumRecords = NumberOf(keys, QStringLiteral("Delivered/MinimumRecords"), 0, kMost, 1);
    driver.types = PlainTextOf(keys, QStringLiteral("Delivered/Types"));
}

}  // namespace

DriverFile ReadDriverFile(const QString& folder) {
    DriverFile driver;
    driver.folder = WithTrailingSeparator(folder);
    QString plain = driver.folder;
    while (!plain.isEmpty() && IsSeparator(plain.back()))
        plain.chop(1);
    driver.name = GetFileName(plain);
    driver.caption = driver.name;
    TakeKeys(driver, KeysOfFile(driver.folder + kDriverFileName));
    return driver;
}

}  // namespace sheetwright

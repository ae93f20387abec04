#include "apps/line_reader/transmission.h"

#include "core/failure.h"

#include <algorithm>

namespace sheetwright {

namespace {

constexpr std::int64_t kMostBytes = 100'000'000;
constexpr int kToldOneByOne = 100;  // later only every hundredth record is told
constexpr qsizetype kQuoted = 80;   // characters of a line in a message

[[noreturn]] void Break(const QString& text) {
    throw Failure(failure::kDeviceError, text);
}

// A tab may separate; all else is noise on the line, and one character is the line break of a stored form.
bool IsNoise(QChar character) {
    return character.category() == QChar::Other_Control && character != u'\t';
}

}  // namespace

Transmission::Transmission(const ReaderConfig& config, std::function<void(const QString&)> tell)
    : m_config(config),
      m_tell(std::move(tell)),
      m_codec(config.lines.isUtf8 ? CsvEncoding::Utf8 : CsvEncoding::CodePage),
      m_table(config.layout.ColumnNames()) {}

void Transmission::CountBytes(qsizetype count) {
    m_bytes += count;
    if (m_bytes > kMostBytes) Break(QStringLiteral("The instrument sends more than 100 MB"));
}

// With the usual line end, a carriage return before it belongs to it.
QByteArrayView Transmission::WithoutLineEnd(qsizetype start, qsizetype end) const {
    QByteArrayView line = QByteArrayView(m_pending).sliced(start, end - start);
    if (m_config.lines.end == "\n" && line.endsWith('\r')) line.chop(1);
    return line;
}

void Transmission::Take(QByteArrayView bytes) {
    if (m_isOver) return;
    CountBytes(bytes.size());
    m_pending.append(bytes);
    const QByteArray& mark = m_config.lines.end;
    qsizetype start = 0;
    qsizetype end = m_pending.indexOf(mark, m_searched);
    for (; end >= 0; end = m_pending.indexOf(mark, start)) {
        TakeLine(WithoutLineEnd(start, end));
        if (m_isOver) return;
        start = end + mark.size();
    }
    m_pending.remove(0, start);
    if (m_pending.size() > m_config.lines.maximumLength + mark.size())
        Break(QStringLiteral("Line %1 is longer than %2 bytes")
                  .arg(m_lines + 1)
                  .arg(m_config.lines.maximumLength));
    m_searched = std::max<qsizetype>(0, m_pending.size() - mark.size() + 1);
}

void Transmission::TakeLine(QByteArrayView line) {
    const LinesConfig& limits = m_config.lines;
    if (++m_lines > limits.maximumLines)
        Break(QStringLiteral("The instrument sends more than %1 lines").arg(limits.maximumLines));
    if (line.size() > limits.maximumLength)
        Break(QStringLiteral("Line %1 is longer than %2 bytes").arg(m_lines).arg(limits.maximumLength));
    try {
        const QString text = Decoded(line);
        m_isOver = IsEndMark(text);
        if (!m_isOver && !IsPassedOver(text)) AddRecordOf(text);
    } catch (const Failure& caught) {
        if (caught.Number() != failure::kInvalidFormat) throw;
        RefuseLine(line, caught.Text());
    }
}

QString Transmission::Decoded(QByteArrayView line) const {
    if (m_config.lines.isUtf8 && !line.isValidUtf8())
        throw Failure(failure::kInvalidFormat, QStringLiteral("it is no UTF-8"));
    QString text = m_codec.Decode(line);
    if (m_lines == 1 && text.startsWith(QChar::ByteOrderMark)) text.remove(0, 1);
    return text;
}

bool Transmission::IsEndMark(const QString& line) const {
    return !m_config.lines.endMark.isEmpty() && QStringView(line).trimmed() == m_config.lines.endMark;
}

bool Transmission::IsPassedOver(const QString& line) const {
    return QStringView(line).trimmed().isEmpty() ||
           std::ranges::any_of(m_config.lines.skip,
                               [&](const QString& start) { return line.startsWith(start); });
}

void Transmission::AddRecordOf(const QString& line) {
    if (std::ranges::any_of(line, IsNoise))
        throw Failure(failure::kInvalidFormat, QStringLiteral("it holds control characters"));
    const QStringList record = m_config.layout.RecordOf(line);
    m_table.AddRecord(record);
    TellRecord(record);
}

void Transmission::TellRecord(const QStringList& record) const {
    const int count = m_table.RecordCount();
    if (count > kToldOneByOne && count % kToldOneByOne != 0) return;
    m_tell(QStringLiteral("Record %1: %2").arg(QString::number(count), record.join(QStringLiteral(", "))));
}

void Transmission::RefuseLine(QByteArrayView line, const QString& reason) {
    const QString shown = QString::fromUtf8(line.first(std::min(line.size(), kQuoted)));
    const QString text =
        QStringLiteral("Line %1 does not fit: %2: \"%3\"").arg(QString::number(m_lines), reason, shown);
    if (!m_config.lines.skipsBadLines) throw Failure(failure::kInvalidFormat, text);
    m_tell(text + QStringLiteral(" (passed over)"));
}

void Transmission::Finish(Silence silence) {
    // A prompt, say, that is not followed by a line end.
    if (!m_isOver) m_isOver = IsEndMark(m_codec.Decode(WithoutLineEnd(0, m_pending.size())));
    if (m_isOver) return;
    const QString what = silence == Silence::Closed
                             ? QStringLiteral("The instrument closed the connection %1")
                             : QStringLiteral("The instrument stopped sending %1");
    if (!m_config.lines.endMark.isEmpty())
        Break(what.arg(QStringLiteral("before the end mark \"%1\"").arg(m_config.lines.endMark)));
    if (!m_pending.isEmpty()) Break(what.arg(QStringLiteral("in the middle of line %1").arg(m_lines + 1)));
    if (m_table.RecordCount() == 0) Break(what.arg(QStringLiteral("without a reading")));
}

}  // namespace sheetwright

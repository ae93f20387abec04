#include "core/text.h"

#include <QStringConverter>
#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr QChar kLineBreakMark(127);

constexpr qsizetype kScanned = 4096;  // units that are scanned without a branch each, so that it vectorises

template <typename Unit>
bool IsAsciiRun(const Unit* units, qsizetype count) {
    for (qsizetype at = 0; at < count; at += kScanned) {
        const qsizetype end = std::min(count, at + kScanned);
        Unit seen = 0;
        for (qsizetype unit = at; unit < end; ++unit)
            seen = static_cast<Unit>(seen | units[unit]);
        if (seen >= 0x80) return false;
    }
    return true;
}

QByteArray ToUtf8(QStringView text) {
    const QByteArray bytes = text.toUtf8();
    return text.startsWith(QChar(QChar::ByteOrderMark)) ? "\xEF\xBB\xBF" + bytes : bytes;
}

}  // namespace

bool IsAscii(QByteArrayView bytes) {
    return IsAsciiRun(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
}

bool IsAscii(QStringView text) {
    return IsAsciiRun(text.utf16(), text.size());
}

QString DecodeFileText(QByteArrayView bytes) {
    if (IsAscii(bytes)) return QString::fromLatin1(bytes);
    if (bytes.isValidUtf8()) return QString::fromUtf8(bytes);  // drops one byte-order mark
    QStringDecoder decoder(kCodePage);
    return decoder.decode(bytes);
}

QByteArray EncodeFileText(QStringView text) {
    if (IsAscii(text)) return text.toLatin1();
    QStringEncoder encoder(kCodePage);
    QByteArray bytes = encoder.encode(text);
    const bool survives =
        !encoder.hasError() && !QByteArrayView(bytes).isValidUtf8() && DecodeFileText(bytes) == text;
    return survives ? bytes : ToUtf8(text);
}

QStringView TakeLine(QStringView& rest) {
    const char16_t* const begin = rest.utf16();
    const char16_t* const end = begin + rest.size();
    const char16_t* at = begin;
    while (at != end && (*at > u'\r' || (*at != u'\n' && *at != u'\r')))
        ++at;
    const QStringView line = rest.first(at - begin);
    const bool isPair = end - at > 1 && at[0] == u'\r' && at[1] == u'\n';
    rest = rest.sliced(std::min<qsizetype>(rest.size(), at - begin + (isPair ? 2 : 1)));
    return line;
}

std::vector<QStringView> SplitLines(QStringView text) {
    std::vector<QStringView> lines;
    while (!text.isEmpty())
        lines.push_back(TakeLine(text));
    return lines;
}

QStringView StripTabs(QStringView line) {
    while (line.startsWith(u'\t'))
        line = line.sliced(1);
    return line;
}

QStringView TrimBlanks(QStringView text) {
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QString EncodeLineBreaks(QStringView text) {
    QString encoded;
    encoded.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isBreak = text[at] == u'\r' || text[at] == u'\n';
        encoded.append(isBreak ? kLineBreakMark : text[at]);
        if (text[at] == u'\r') ++at;
    }
    return encoded;
}

QString DecodeLineBreaks(QStringView text) {
    QString decoded;
    decoded.reserve(text.size());
    for (qsizetype mark = text.indexOf(kLineBreakMark); mark >= 0; mark = text.indexOf(kLineBreakMark)) {
        decoded.append(text.first(mark)).append(u"\r\n");
        text = text.sliced(mark + 1);
    }
    return decoded.append(text);
}

QString WithPairedLineBreaks(QString text) {
    const auto isBreak = [](QChar character) { return character == u'\r' || character == u'\n'; };
    if (std::none_of(text.cbegin(), text.cend(), isBreak)) return text;
    QString paired;
    for (QStringView rest = text; !rest.isEmpty();) {
        const qsizetype before = rest.size();
        const QStringView line = TakeLine(rest);
        paired.append(line);
        if (before > line.size()) paired.append(u"\r\n");
    }
    return paired;
}

QStringView KeyOf(QStringView line) {
    const qsizetype equals = line.indexOf(u'=');
    return equals < 0 ? QStringView(u"") : line.first(equals);
}

QStringView ValueOf(QStringView line) {
    const qsizetype equals = line.indexOf(u'=');
    return equals < 0 ? QStringView(u"") : line.sliced(equals + 1);
}

}  // namespace sheetwright

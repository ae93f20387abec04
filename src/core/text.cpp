#include "core/text.h"

#include <QStringConverter>
#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr QChar kLineBreakMark(127);

bool IsAscii(QByteArrayView bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

}  // namespace

QString DecodeFileText(QByteArrayView bytes) {
    if (IsAscii(bytes)) return QString::fromLatin1(bytes);
    if (bytes.isValidUtf8()) {
        const bool hasMark = bytes.startsWith("\xEF\xBB\xBF");
        return QString::fromUtf8(hasMark ? bytes.sliced(3) : bytes);
    }
    QStringDecoder decoder(kCodePage);
    return decoder.decode(bytes);
}

QByteArray EncodeFileText(QStringView text) {
    QStringEncoder encoder(kCodePage);
    QByteArray bytes = encoder.encode(text);
    if (IsAscii(bytes) && !encoder.hasError()) return bytes;
    if (encoder.hasError() || QByteArrayView(bytes).isValidUtf8() || DecodeFileText(bytes) != text)
        return text.toUtf8();
    return bytes;
}

QStringView TakeLine(QStringView& rest) {
    const auto* const end = std::find_if(rest.begin(), rest.end(),
                                         [](QChar character) { return character == u'\n' || character == u'\r'; });
    const qsizetype length = end - rest.begin();
    const QStringView line = rest.first(length);
    const bool isPair = rest.size() > length + 1 && rest[length] == u'\r' && rest[length + 1] == u'\n';
    rest = rest.sliced(std::min(rest.size(), length + (isPair ? 2 : 1)));
    return line;
}

std::vector<QStringView> SplitLines(QStringView text) {
    std::vector<QStringView> lines;
    while (!text.isEmpty()) lines.push_back(TakeLine(text));
    return lines;
}

QStringView StripTabs(QStringView line) {
    while (line.startsWith(u'\t')) line = line.sliced(1);
    return line;
}

QStringView TrimBlanks(QStringView text) {
    while (text.startsWith(u' ')) text = text.sliced(1);
    while (text.endsWith(u' ')) text.chop(1);
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
    QString decoded = text.toString();
    decoded.replace(kLineBreakMark, QStringLiteral("\r\n"));
    return decoded;
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

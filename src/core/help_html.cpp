#include "core/help_html.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

namespace sheetwright {

namespace {

constexpr qsizetype kLongestEntity = 10;
constexpr qsizetype kLongestName = 20;
constexpr qsizetype kLongestMarkup = 4096;  // in which quotes are looked at
constexpr int kDeepest = 100;
constexpr int kDeepestTable = 4;  // each further table in a table takes several times as long

constexpr std::array<std::pair<QStringView, char16_t>, 6> kEntities{
    {{u"amp", u'&'}, {u"lt", u'<'}, {u"gt", u'>'}, {u"quot", u'"'}, {u"apos", u'\''}, {u"nbsp", u'\u00A0'}}};

// Elements that have no end, or are ended by the next one of their kind.
constexpr std::array<QStringView, 17> kFlat{u"br",    u"col", u"dd",   u"dt",    u"hr",     u"img",
                                            u"input", u"li",  u"link", u"meta",  u"option", u"p",
                                            u"tbody", u"td",  u"th",   u"thead", u"tr"};

QString CharacterOf(QStringView number) {
    const bool isHex = number.startsWith(u'x') || number.startsWith(u'X');
    bool isNumber = false;
    const char32_t code = isHex ? number.sliced(1).toUInt(&isNumber, 16) : number.toUInt(&isNumber);
    const bool isCharacter = isNumber && code > 0 && code <= 0x10FFFF && !QChar::isSurrogate(code);
    return isCharacter ? QString::fromUcs4(&code, 1) : QString(QChar::ReplacementCharacter);
}

// "" for what is no entity.
QString EntityText(QStringView name) {
    if (name.startsWith(u'#')) return CharacterOf(name.sliced(1));
    const auto* const known =
        std::ranges::find(kEntities, name, [](const auto& entity) { return entity.first; });
    return known == kEntities.end() ? QString() : QString(QChar(known->second));
}

QString WithEntities(QStringView text) {
    QString result;
    for (qsizetype at = text.indexOf(u'&'); at >= 0; at = text.indexOf(u'&')) {
        result += text.first(at);
        text = text.sliced(at);
        const qsizetype end = text.first(std::min(text.size(), kLongestEntity)).indexOf(u';');
        const QString character = end < 0 ? QString() : EntityText(text.sliced(1, end - 1));
        result += character.isEmpty() ? QStringLiteral("&") : character;
        text = text.sliced(character.isEmpty() ? 1 : end + 1);
    }
    result += text;
    return result;
}

bool StartsName(QStringView text) {
    return !text.isEmpty() && text.front().unicode() < 128 && text.front().isLetter();
}

bool StartsMarkup(QStringView text) {
    if (!text.startsWith(u'<') || text.size() < 2) return false;
    const QStringView rest = text.sliced(1);
    return rest.front() == u'!' || rest.front() == u'?' || StartsName(rest) ||
           (rest.front() == u'/' && StartsName(rest.sliced(1)));
}

qsizetype NameLength(QStringView text) {
    qsizetype length = 0;
    while (length < std::min(text.size(), kLongestName) && text[length].isLetterOrNumber())
        ++length;
    return length;
}

}  // namespace

bool HtmlReader::Next(HtmlPiece& piece) {
    while (!m_rest.isEmpty()) {
        if (!StartsMarkup(m_rest)) {
            TakeText(piece);
            return true;
        }
        if (TakeMarkup(piece)) return true;
    }
    return false;
}

void HtmlReader::TakeText(HtmlPiece& piece) {
    qsizetype end = m_rest.indexOf(u'<', 1);
    if (end < 0) end = m_rest.size();
    piece = {HtmlPiece::Kind::Text, {}, {}, WithEntities(m_rest.first(end))};
    m_rest = m_rest.sliced(end);
}

bool HtmlReader::TakeMarkup(HtmlPiece& piece) {
    if (m_rest.startsWith(u"<!--")) {
        SkipTo(u"-->");
        return false;
    }
    const qsizetype end = EndOfMarkup();
    if (m_rest[1] == u'!' || m_rest[1] == u'?') {
        m_rest = m_rest.sliced(end);
        return false;
    }
    TakeElement(piece, end);
    return true;
}

void HtmlReader::TakeElement(HtmlPiece& piece, qsizetype end) {
    const bool isEnd = m_rest[1] == u'/';
    const QStringView inside = m_rest.first(end).sliced(isEnd ? 2 : 1);
    const qsizetype length = NameLength(inside);
    piece = {isEnd ? HtmlPiece::Kind::End : HtmlPiece::Kind::Start,
             inside.first(length).toString().toLower(),
             inside.sliced(length, std::min(inside.size() - length, kLongestMarkup)),
             {}};
    m_rest = m_rest.sliced(end);
    if (!isEnd) SkipContentOf(piece.name);
}

void HtmlReader::SkipTo(QStringView mark) {
    const qsizetype at = m_rest.indexOf(mark, 0, Qt::CaseInsensitive);
    m_rest = at < 0 ? QStringView() : m_rest.sliced(at + mark.size());
}

void HtmlReader::SkipContentOf(const QString& name) {
    if (name == u"style") SkipTo(u"</style>");
    if (name == u"script") SkipTo(u"</script>");
}

// Behind the ">" that is in no quotes; where there is none for long, behind the first one.
qsizetype HtmlReader::EndOfMarkup() const {
    QChar quote;
    const qsizetype farthest = std::min(m_rest.size(), kLongestMarkup);
    for (qsizetype at = 0; at < farthest; ++at) {
        const QChar character = m_rest[at];
        if (!quote.isNull()) {
            if (character == quote) quote = QChar();
        } else if (character == u'>') {
            return at + 1;
        } else if (character == u'"' || character == u'\'') {
            quote = character;
        }
    }
    const qsizetype first = m_rest.indexOf(u'>');
    return first < 0 ? m_rest.size() : first + 1;
}

QString AttributeOf(const HtmlPiece& piece, QStringView attribute) {
    static const QRegularExpression attributes(
        QStringLiteral(R"re(([A-Za-z][-\w]*)\s*=\s*("[^"]*"|'[^']*'|[^\s"'>]+))re"));
    for (const QRegularExpressionMatch& match : attributes.globalMatch(piece.attributes.toString())) {
        if (match.capturedView(1).compare(attribute, Qt::CaseInsensitive) != 0) continue;
        QStringView value = match.capturedView(2);
        if (value.startsWith(u'"') || value.startsWith(u'\'')) value = value.sliced(1).chopped(1);
        return WithEntities(value).trimmed();
    }
    return {};
}

bool IsTooDeep(QStringView html) {
    HtmlReader reader(html);
    HtmlPiece piece;
    QStringList open;
    while (reader.Next(piece)) {
        if (std::ranges::find(kFlat, piece.name) != kFlat.end()) continue;
        if (piece.kind == HtmlPiece::Kind::Start) {
            open << piece.name;
            if (open.size() > kDeepest || open.count(QStringLiteral("table")) > kDeepestTable) return true;
        } else if (piece.kind == HtmlPiece::Kind::End) {
            if (const qsizetype at = open.lastIndexOf(piece.name); at >= 0) open.resize(at);
        }
    }
    return false;
}

}  // namespace sheetwright

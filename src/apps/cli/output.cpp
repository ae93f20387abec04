#include "apps/cli/output.h"

#include <cerrno>
#include <cstdio>

namespace sheetwright::cli {

namespace {

constexpr qsizetype kHeldBack = 65'536;
constexpr QChar kStoredLineBreak(127);

bool IsLineBreak(QChar character) {
    return character == u'\r' || character == u'\n' || character == kStoredLineBreak;
}

bool IsPair(QStringView text, qsizetype at) {
    return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
}

// What the escape at `at` stands for; a null text when there is none.
QString Unescaped(QStringView text, qsizetype at) {
    if (text[at] != u'\\' || at + 1 >= text.size()) return {};
    switch (text[at + 1].unicode()) {
        case u'n':
            return QStringLiteral("\r\n");
        case u't':
            return QStringLiteral("\t");
        case u'\\':
            return QStringLiteral("\\");
        default:
            return {};
    }
}

}  // namespace

void Output::Line(QStringView text) {
    m_pending += text.toUtf8() + '\n';
    if (m_pending.size() >= kHeldBack) (void)Flush();
}

bool Output::Flush() {
    const auto size = static_cast<std::size_t>(m_pending.size());
    if (std::fwrite(m_pending.constData(), 1, size, stdout) != size || std::fflush(stdout) != 0) {
        m_isReaderGone = m_isReaderGone || errno == EPIPE;
        m_isWhole = false;
    }
    m_pending.clear();
    return m_isWhole;
}

QString OnOneLine(QStringView text) {
    QString line;
    line.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == u'\\') {
            line += QStringLiteral("\\\\");
        } else if (text[at] == u'\t') {
            line += QStringLiteral("\\t");
        } else if (IsLineBreak(text[at])) {
            line += QStringLiteral("\\n");
            if (IsPair(text, at)) ++at;
        } else {
            line += text[at];
        }
    }
    return line;
}

QString FromOneLine(QStringView text) {
    QString value;
    value.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (const QString plain = Unescaped(text, at); !plain.isNull()) {
            value += plain;
            ++at;
        } else if (IsLineBreak(text[at])) {
            value += QStringLiteral("\r\n");
            if (IsPair(text, at)) ++at;
        } else {
            value += text[at];
        }
    }
    return value;
}

}  // namespace sheetwright::cli

#include "import/download_output.h"

#include <QStringList>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr qsizetype kMostNew = 1 << 16;  // characters
constexpr qsizetype kTailLength = 1 << 13;
constexpr int kLastLines = 10;
constexpr qsizetype kLongestLine = 200;

// Cuts `text` at its front to about `length` characters, at a line's start if there is one. Returns whether
// it was longer.
bool KeepEnd(QString& text, qsizetype length) {
    if (text.size() <= length) return false;
    qsizetype from = text.size() - length;
    const qsizetype lineEnd = text.indexOf(u'\n', from);
    if (lineEnd >= 0 && lineEnd + 1 < text.size()) from = lineEnd + 1;
    if (text[from].isLowSurrogate()) ++from;
    text.remove(0, from);
    return true;
}

// A carriage return lets the line be written over.
QString SeenLine(QStringView line) {
    line = line.trimmed();
    QString seen = line.sliced(line.lastIndexOf(u'\r') + 1).toString();
    const auto isControl = [](QChar character) { return character.category() == QChar::Other_Control; };
    std::replace_if(seen.begin(), seen.end(), isControl, QChar(u' '));
    seen = seen.trimmed();
    return seen.size() > kLongestLine ? seen.first(kLongestLine) + u'\u2026' : seen;
}

}  // namespace

void DownloadOutput::Add(QByteArrayView bytes) {
    const QString text = m_decoder.decode(bytes);
    m_size += bytes.size();
    m_new += text;
    m_hasGap = KeepEnd(m_new, kMostNew) || m_hasGap;
    m_tail += text;
    KeepEnd(m_tail, kTailLength);
}

QString DownloadOutput::TakeNew() {
    QString text = m_hasGap ? QStringLiteral("\n\u2026\n") : QString();
    text += m_new;
    m_new.clear();
    m_hasGap = false;
    return text;
}

QString DownloadOutput::LastLines() const {
    QStringList lines;
    for (const QStringView line : QStringView(m_tail).split(u'\n')) {
        const QString seen = SeenLine(line);
        if (!seen.isEmpty()) lines << seen;
    }
    return lines.mid(std::max(qsizetype{0}, lines.size() - kLastLines)).join(u'\n');
}

}  // namespace sheetwright

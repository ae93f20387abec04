#include "ui/download_window_text.h"

#include <utility>

namespace sheetwright {

namespace {

constexpr char16_t kFirstPrintable = 0x20;
constexpr char16_t kDelete = 0x7F;
constexpr char16_t kControlPictures = 0x2400;
constexpr QChar kDeleteSign(u'\u2421');

// Controls of the text's direction and the separators of lines and paragraphs would change what stands around
// them.
bool IsControl(QChar character) {
    if (character.isNonCharacter()) return true;
    switch (character.category()) {
        case QChar::Other_Control:
        case QChar::Other_Format:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return true;
        default:
            return false;
    }
}

QChar Shown(QChar character) {
    if (character == u'\t' || !IsControl(character)) return character;
    if (character.unicode() < kFirstPrintable)
        return QChar(static_cast<char16_t>(kControlPictures + character.unicode()));
    return character.unicode() == kDelete ? kDeleteSign : QChar(QChar::ReplacementCharacter);
}

}  // namespace

void DownloadWindowText::Add(QStringView text) {
    for (const QChar character : text) {
        if (character == u'\n') {
            EndLine();
        } else if (character == u'\r') {
            m_isAtStart = true;
        } else {
            AddCharacter(character);
        }
    }
}

// The two halves of a character stay together.
void DownloadWindowText::AddCharacter(QChar character) {
    if (std::exchange(m_isAtStart, false)) m_open.clear();
    if (m_open.size() >= kLongestLine && !character.isLowSurrogate()) EndLine();
    m_open += Shown(character);
}

void DownloadWindowText::EndLine() {
    m_isAtStart = false;
    m_ended << std::exchange(m_open, QString());
    if (m_ended.size() >= 2 * kMostLines) m_ended.remove(0, m_ended.size() - kMostLines);
}

QStringList DownloadWindowText::TakeEnded() {
    QStringList ended = std::exchange(m_ended, {});
    return ended.size() > kMostLines ? ended.last(kMostLines) : ended;
}

}  // namespace sheetwright

#pragma once

// Standard output: lines in UTF-8 whatever the locale, with values made fit for one line.

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace sheetwright::cli {

class Output {
  public:
    void Line(QStringView text);

    // Writes what is still held back. Returns false when anything could not be written, now or before.
    [[nodiscard]] bool Flush();

    // Whether the reader of a pipe has had enough and gone, which is nobody's error.
    [[nodiscard]] bool IsReaderGone() const { return m_isReaderGone; }

  private:
    QByteArray m_pending;
    bool m_isWhole = true;
    bool m_isReaderGone = false;
};

// `text` on one line: tab, line break (CR LF, CR or LF) and backslash as `\t`, `\n` and `\\`.
[[nodiscard]] QString OnOneLine(QStringView text);

// The reverse, for values on the command line: `\n` becomes CR LF, `\t` a tab, `\\` a backslash; any other
// backslash stays. Line breaks of every kind become CR LF.
[[nodiscard]] QString FromOneLine(QStringView text);

}  // namespace sheetwright::cli

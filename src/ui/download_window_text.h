#pragma once

// What a driver's program prints, as lines that can be shown: the last 2,000 of them.

#include <QString>
#include <QStringList>
#include <QStringView>

namespace sheetwright {

class DownloadWindowText {
  public:
    static constexpr qsizetype kMostLines = 2000;
    static constexpr qsizetype kLongestLine = 1000;  // a longer one goes on in the next

    // A line feed ends a line; a carriage return begins it again. Tabs stay, other characters that would do
    // something to the text are shown as signs.
    void Add(QStringView text);

    // The lines that were ended since the last call, as far as they are among the last, and the one that is
    // not yet.
    [[nodiscard]] QStringList TakeEnded();
    [[nodiscard]] const QString& Open() const { return m_open; }

  private:
    void AddCharacter(QChar character);
    void EndLine();

    QStringList m_ended;
    QString m_open;
    bool m_isAtStart = false;  // what comes next replaces the line
};

}  // namespace sheetwright

#pragma once

// A configuration in sections of "key = value". Unlike a driver's description it is read strictly: what is
// misspelt is told, since a reading in the wrong column would go unnoticed.

#include <QString>
#include <QStringList>
#include <QStringView>

#include <vector>

namespace sheetwright {

struct IniEntry {
    QString key;
    QString value;  // without the blanks at its ends; quotes are part of it
    int line = 0;   // from 1
};

struct IniSection {
    QString name;
    std::vector<IniEntry> entries;  // in the order of the file
};

// Lines that begin with ";" or "#" and empty ones are comments. Raises 321 for a line that is neither section
// nor entry, an entry before the first section, and a section or key that is given twice.
[[nodiscard]] std::vector<IniSection> ParseIni(QStringView text);

// Hands out the values of one section and remembers which were asked for.
class SectionReader {
  public:
    // A section that is not there has no values.
    SectionReader(const std::vector<IniSection>& sections, QStringView name);

    [[nodiscard]] QString Text(QStringView key, const QString& fallback = {});
    // Raise 321 when there is a value that does not fit.
    [[nodiscard]] int Number(QStringView key, int fallback, int least, int most);
    [[nodiscard]] int Milliseconds(QStringView key, int fallbackSeconds);  // given in seconds
    [[nodiscard]] qsizetype Choice(QStringView key, const QStringList& words, qsizetype fallback = 0);
    // With "\r", "\n", "\t", "\\" and "\xNN" resolved; other characters are encoded by `isUtf8` or the code
    // page.
    [[nodiscard]] QByteArray Bytes(QStringView key, const QString& fallback, bool isUtf8);

    // Raises 321 for a key that nobody asked for.
    void RefuseOthers() const;
    // Raises 321 about the value of `key`.
    [[noreturn]] void Refuse(QStringView key, const QString& expected) const;

  private:
    [[nodiscard]] const IniEntry* Find(QStringView key) const;

    QString m_name;
    std::vector<IniEntry> m_entries;
    QStringList m_asked;
};

[[noreturn]] void RefuseConfiguration(const QString& text);

}  // namespace sheetwright

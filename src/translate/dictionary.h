#pragma once

// Translation at run time. The English text itself is the key, so a program without a dictionary, or a text
// that the dictionary lacks, simply shows its English.

#include <QHash>
#include <QString>

namespace sheetwright {

// One file of texts in English and in the language of the installation, by the columns "ENGLISH" and
// "TRANSLATION". The translation is taken from the second column.
class Dictionary {
  public:
    // Opens a dictionary in the place of the one that is open, if any, which stays when there is no such
    // file. Raises 75 for a file that can't be read; then too the old one stays.
    void Load(const QString& path);
    [[nodiscard]] bool IsOpen() const { return m_isOpen; }

    // `text` in the language of the dictionary, or as it is when the dictionary lacks it or has blanks for
    // it. A result that holds "%1" gets all its markers, "%" and a digit, replaced by the values of
    // `parameters`, also without a dictionary. Raises 9 for a text that stands in a dictionary without a
    // second column.
    [[nodiscard]] QString Translate(const QString& text, const QString& parameters = QString()) const;

  private:
    [[nodiscard]] QString Lookup(const QString& text) const;

    QHash<QString, QString> m_translations;  // by the English text
    bool m_isOpen = false;
    bool m_hasTranslations = false;  // the file has a second column
};

// The N-th value (from 1) of a parameter string whose values are separated by "¦"; the last one when fewer
// exist, so that a single value fills every marker. 0 is taken as 1.
[[nodiscard]] QString GetParam(const QString& parameters, int n);

}  // namespace sheetwright

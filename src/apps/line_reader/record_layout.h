#pragma once

// Where the values of a record stand in a line of the instrument, and how they are written in the table.

#include "apps/line_reader/ini_text.h"

#include <QChar>
#include <QString>
#include <QStringList>

#include <vector>

namespace sheetwright {

enum class Separation { Csv, Character, Blanks, Fixed };
enum class Conversion { None, Trim, Date, Boolean };

struct ColumnRule {
    QString name;
    bool isConstant = false;
    QString constant;
    int start = 0;   // of the field: its number or, where positions are fixed, its first character; from 1
    int length = 0;  // characters, where positions are fixed
    Conversion conversion = Conversion::None;
    QString dateFormat;
    QStringList trueWords;
    QStringList falseWords;
};

class RecordLayout {
  public:
    // `separator` as the configuration gives it: "csv", "tab", "blanks", "fixed" or one character. Raises 321
    // for a layout that makes no sense.
    RecordLayout(const QString& separator, const std::vector<IniSection>& sections);

    [[nodiscard]] QStringList ColumnNames() const;

    // One value for each column. Raises 321 for a line that does not fit, and says why.
    [[nodiscard]] QStringList RecordOf(const QString& line) const;

  private:
    [[nodiscard]] QStringList FieldsOf(const QString& line) const;
    [[nodiscard]] QString ValueOf(const ColumnRule& column, const QString& line,
                                  const QStringList& fields) const;

    Separation m_separation = Separation::Character;
    QChar m_separator;
    int m_fieldsNeeded = 0;  // or characters, where positions are fixed
    std::vector<ColumnRule> m_columns;
};

// The values of a line in the syntax of comma-separated files.
[[nodiscard]] QStringList CsvValues(const QString& line);

}  // namespace sheetwright

#include "import_form.h"

#include <QString>

namespace sheetwright {

namespace {

constexpr int kColumns = 12;

// One FIELD record; `number` is 100 times the line and the place in it.
QString Record(const QString& name, const QString& keys, int number) {
    return QStringLiteral("BEGIN FIELD\r\nName=%1\r\n%2TabIdx=%3\r\n").arg(name, keys).arg(number) +
           QStringLiteral(
               "FieldType=0\r\nWordWrap=False\r\nReadOnly=False\r\nBorderStyle=1\r\nAbsLeft=%1\r\n"
               "AbsTop=%2\r\nWidth=720\r\nHeight=300\r\nAlignment=0\r\nFontName=Arial\r\n"
               "FontSize=8\r\nFontBold=False\r\nFontItalic=False\r\nFontUnderline=False\r\n"
               "FontStrikethru=False\r\nForeColor=0\r\nEND FIELD\r\n")
               .arg(number % 100 * 780 - 400)
               .arg(number / 100 * 720 + 600);
}

// The fields of one line: the columns, the first of which is the key and begins a new line, and two formulas.
QString LineOf(int line) {
    QString text;
    for (int column = 1; column <= kColumns; ++column)
        text += Record(
            QStringLiteral("c%1 %2").arg(column).arg(line),
            QStringLiteral("DataSource=c%1,DRIVERS\\meter\r\nMultiRecordIndex=%2\r\n%3")
                .arg(column)
                .arg(line)
                .arg(column == 1 ? QStringLiteral("KeyLevel=1\r\nNewLineOnReoccur=True\r\n") : QString()),
            line * 100 + column);
    for (const int formula : {1, 2})
        text +=
            Record(QStringLiteral("f%1 %2").arg(formula).arg(line),
                   QStringLiteral("Formula=SETME(ADD({FIELDS\\Sheet,c%1 %2},1))\r\nMultiRecordIndex=%2\r\n")
                       .arg(formula + 1)
                       .arg(line),
                   line * 100 + kColumns + formula);
    return text;
}

}  // namespace

QByteArray ImportForm() {
    QString text = QStringLiteral(
        "VERSION 1.0.0\r\nBEGIN DESIGN\r\nBEGIN PAGE 1\r\nTitle=Sheet\r\n"
        "Orientation=1\r\nPaperSize=9\r\n");
    for (int line = 0; line < kImportLines; ++line)
        text += LineOf(line);
    return (text +
            QStringLiteral("END PAGE\r\nEND DESIGN\r\nBEGIN DATA\r\nBEGIN PAGE 1 DESIGN=1\r\nEND PAGE\r\n"
                           "END DATA\r\n"))
        .toLatin1();
}

QByteArray ImportTable(int records) {
    QByteArray text("c1");
    for (int column = 2; column <= kColumns; ++column)
        text += ",c" + QByteArray::number(column);
    for (int record = 1; record <= records; ++record) {
        text += "\r\nkey " + QByteArray::number(record * 7919 % 1000003);
        for (int column = 2; column <= kColumns; ++column)
            text += ',' + QByteArray::number(record * column % 977);
    }
    return text + "\r\n";
}

}  // namespace sheetwright

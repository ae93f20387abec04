#pragma once

// What a PDF file holds, read by programs that know nothing of this one.

#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sheetwright {

inline QString OutputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    const bool isDone = process.waitForFinished(60'000) && process.exitCode() == 0;
    EXPECT_TRUE(isDone) << program.toStdString() << ' ' << arguments.join(u' ').toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The text of a page, without blank space at its ends.
inline std::string PdfText(const QString& path, int page) {
    const QString number = QString::number(page);
    return OutputOf(QStringLiteral("pdftotext"),
                    {QStringLiteral("-f"), number, QStringLiteral("-l"), number, path, QStringLiteral("-")})
        .trimmed()
        .toStdString();
}

// One line of what `pdfinfo` tells; "" when there is none.
inline std::string PdfInfo(const QString& path, const QString& key) {
    const QRegularExpression line(QStringLiteral("^%1: +(.*)$").arg(key),
                                  QRegularExpression::MultilineOption);
    return line.match(OutputOf(QStringLiteral("pdfinfo"), {path})).captured(1).toStdString();
}

// Width x height of each page in whole points.
inline std::vector<std::string> PdfPageSizes(const QString& path) {
    const QRegularExpression size(QStringLiteral("Page +[0-9]+ size: +([0-9]+)[.0-9]* x ([0-9]+)"));
    std::vector<std::string> sizes;
    auto found = size.globalMatch(OutputOf(
        QStringLiteral("pdfinfo"),
        {QStringLiteral("-f"), QStringLiteral("1"), QStringLiteral("-l"), QStringLiteral("99"), path}));
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        sizes.push_back((match.captured(1) + u'x' + match.captured(2)).toStdString());
    }
    return sizes;
}

// The columns of each font: name, type, encoding, emb, sub, uni, object, generation.
inline std::vector<QStringList> PdfFonts(const QString& path) {
    const QStringList lines =
        OutputOf(QStringLiteral("pdffonts"), {path}).split(u'\n', Qt::SkipEmptyParts).mid(2);
    std::vector<QStringList> fonts;
    for (const QString& line : lines)
        fonts.push_back(
            line.simplified().replace(QStringLiteral("CID TrueType"), QStringLiteral("CID")).split(u' '));
    return fonts;
}

// How many images the file keeps, however often each is shown.
inline qsizetype PdfImageCount(const QString& path) {
    const QStringList lines = OutputOf(QStringLiteral("pdfimages"), {QStringLiteral("-list"), path})
                                  .split(u'\n', Qt::SkipEmptyParts)
                                  .mid(2);
    QSet<QString> objects;
    for (const QString& line : lines)
        objects.insert(line.simplified().section(u' ', 10, 10));
    return objects.size();
}

}  // namespace sheetwright

#include "print/wmf_picture.h"

#include "core/failure.h"
#include "print/units.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QImage>
#include <QProcess>
#include <QScopeGuard>

#include <algorithm>
#include <cmath>

namespace sheetwright {

namespace {

constexpr double kPixelsPerTwip = 4 / kTwipsPerScreenPixel;
constexpr double kFewestPixels = 1200;  // of the longer side: drawings are made to be enlarged
constexpr double kLongestSide = 32'000;
constexpr int kMilliseconds = 10'000;
constexpr qint64 kBytesPerPixel = 4;

QProcess& Started(QProcess& process, QSize pixels) {
    process.setProgram(QCoreApplication::applicationDirPath() + QStringLiteral("/sheetwright-wmf"));
    process.setArguments({QString::number(pixels.width()), QString::number(pixels.height())});
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start();
    return process;
}

// What the program gives for `input`, at most one byte more than it should.
QByteArray OutputOf(QProcess& process, const QByteArray& input, qint64 expected) {
    const QDeadlineTimer deadline(kMilliseconds);
    process.write(input);
    process.closeWriteChannel();
    QByteArray output;
    while (output.size() <= expected && process.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
        output += process.read(expected + 1 - output.size());
    output += process.read(expected + 1 - output.size());
    process.waitForFinished(static_cast<int>(deadline.remainingTime()));
    return output;
}

QImage Drawn(const QByteArray& metafile, QSize pixels) {
    QProcess process;
    const auto ended = qScopeGuard([&process] {
        process.kill();
        process.waitForFinished();
    });
    const qint64 expected = kBytesPerPixel * pixels.width() * pixels.height();
    const QByteArray output = OutputOf(Started(process, pixels), metafile, expected);
    if (process.state() != QProcess::NotRunning || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0 || output.size() != expected)
        throw Failure(failure::kInvalidPicture);
    return QImage(reinterpret_cast<const uchar*>(output.constData()), pixels.width(), pixels.height(),
                  QImage::Format_ARGB32_Premultiplied)
        .copy();
}

}  // namespace

QSize MetafilePixels(double width, double height) {
    const double longer = std::max(width, height);
    const double wanted = std::clamp(longer * kPixelsPerTwip, kFewestPixels, kLongestSide) / longer;
    const double most = std::sqrt(kMostMetafilePixels / width / height);
    const double scale = std::min(wanted, most);
    const auto pixels = [scale](double twips) {
        return std::max(1, static_cast<int>(std::round(twips * scale)));
    };
    return {pixels(width), pixels(height)};
}

Picture MetafilePicture(const QByteArray& bytes) {
    const Metafile metafile = ReadMetafile(bytes);
    Picture picture;
    picture.image = Drawn(metafile.bytes, MetafilePixels(metafile.width, metafile.height));
    picture.width = metafile.width;
    picture.height = metafile.height;
    return picture;
}

}  // namespace sheetwright

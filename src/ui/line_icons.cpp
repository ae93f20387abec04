#include "ui/line_icons.h"

#include <QBuffer>
#include <QColor>
#include <QFile>
#include <QImageReader>
#include <QPixmap>

namespace sheetwright {

namespace {

constexpr int kSizes[] = {16, 20, 24, 32, 40, 48, 64};

QByteArray Drawing(const QString& name) {
    QFile file(QStringLiteral(":/sheetwright/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QIcon Rendered(QByteArray drawing) {
    QIcon icon;
    for (const int size : kSizes) {
        QBuffer buffer(&drawing);
        QImageReader reader(&buffer, QByteArrayLiteral("svg"));
        reader.setScaledSize(QSize(size, size));
        if (const QImage image = reader.read(); !image.isNull()) icon.addPixmap(QPixmap::fromImage(image));
    }
    return icon;
}

}  // namespace

QIcon LineIcon(const QString& name, const QColor& colour) {
    return Rendered(Drawing(name).replace("#000000", colour.name().toLatin1()));
}

QIcon ProgramIcon(bool isViewer) {
    return Rendered(Drawing(isViewer ? QStringLiteral("sheetwright-viewer") : QStringLiteral("sheetwright")));
}

}  // namespace sheetwright

// Draws an icon in the sizes that desktops want as pixels. Used while the program is built:
// render_icon DRAWING.svg THEME-FOLDER KIND SIZE... writes THEME-FOLDER/<size>x<size>/KIND/DRAWING.png

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QStringList>

#include <cstdio>

namespace {

QImage Drawn(const QString& drawing, int size) {
    QImageReader reader(drawing, QByteArrayLiteral("svg"));
    reader.setScaledSize(QSize(size, size));
    return reader.read();
}

bool Render(const QString& drawing, const QString& folder, int size) {
    const QImage image = Drawn(drawing, size);
    const QString file = folder + u'/' + QFileInfo(drawing).completeBaseName() + QStringLiteral(".png");
    if (image.width() == size && QDir().mkpath(folder) && image.save(file)) return true;
    std::fprintf(stderr, "%s can't be drawn to %s\n", qPrintable(drawing), qPrintable(file));
    return false;
}

}  // namespace

int main(int count, char** arguments) {
    constexpr int kFirstSize = 4;
    const QCoreApplication application(count, arguments);
    const QStringList words = QCoreApplication::arguments();
    for (const QString& size : words.mid(kFirstSize)) {
        const QString folder = QStringLiteral("%1/%2x%2/%3").arg(words[2], size, words[3]);
        if (!Render(words[1], folder, size.toInt())) return EXIT_FAILURE;
    }
    return words.size() > kFirstSize ? EXIT_SUCCESS : EXIT_FAILURE;
}

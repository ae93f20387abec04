// Draws one metafile: bytes on standard input, pixels on standard output (red, green, blue and alpha of each
// in one native 32-bit number, rows from top to bottom). It is started by the program itself for every
// metafile that a form shows, and may crash, hang or run out of memory without harm to it.

#include "apps/wmf/metafile_player.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

constexpr int kLongestSide = 32'000;
constexpr qint64 kMostPixels = 20'000'000;

void Limit(int resource, rlim_t most) {
    const rlimit limit{most, most};
    static_cast<void>(setrlimit(static_cast<__rlimit_resource_t>(resource), &limit));
}

void LimitThisProcess() {
    constexpr rlim_t kSeconds = 10;
    std::signal(SIGXFSZ, SIG_IGN);
    Limit(RLIMIT_CORE, 0);
    Limit(RLIMIT_FSIZE, 0);  // a pipe is no file
    Limit(RLIMIT_CPU, kSeconds);
#ifndef SHEETWRIGHT_SANITIZED  // sanitizers reserve more than that
    constexpr rlim_t kBytes = 1'500'000'000;
    Limit(RLIMIT_AS, kBytes);
#endif
}

// On the platform that shows no windows, whatever display there is. Starting wants a folder for what runs,
// and makes one that stays if it is not given any.
std::unique_ptr<QGuiApplication> StartedApplication(int& argc, char** argv) {
    const QTemporaryDir runtime;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");  // may insist on a display
    return std::make_unique<QGuiApplication>(argc, argv);
}

bool Write(const QImage& image) {
    QFile output;
    return output.open(stdout, QIODevice::WriteOnly) &&
           output.write(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()) ==
               image.sizeInBytes() &&
           output.flush();
}

}  // namespace

int main(int argc, char** argv) {
    const std::unique_ptr<QGuiApplication> application = StartedApplication(argc, argv);
    LimitThisProcess();
    const QSize pixels(argc == 3 ? std::atoi(argv[1]) : 0, argc == 3 ? std::atoi(argv[2]) : 0);
    const bool isReasonable = !pixels.isEmpty() && pixels.width() <= kLongestSide &&
                              pixels.height() <= kLongestSide &&
                              qint64{pixels.width()} * pixels.height() <= kMostPixels;
    QFile input;
    if (!isReasonable || !input.open(stdin, QIODevice::ReadOnly)) {
        std::fputs("usage: sheetwright-wmf WIDTH HEIGHT < METAFILE > PIXELS\n", stderr);
        return 2;
    }
    const auto image = sheetwright::DrawMetafile(input.readAll(), pixels);
    return image && Write(*image) ? 0 : 1;
}

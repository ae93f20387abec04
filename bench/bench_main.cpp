// Every large block of memory comes fresh from the system, in each round and at each size, as it does for a
// program that opens one form. Without this the smaller sizes would be measured in memory that is still warm,
// and the growth from one size to the next would be that of the allocator. Fonts come without a display.

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

int main(int argc, char** argv) {
#ifdef __GLIBC__
    constexpr int kLargeBlock = 256 * 1024;
    mallopt(M_MMAP_THRESHOLD, kLargeBlock);
    mallopt(M_TRIM_THRESHOLD, kLargeBlock);
#endif
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

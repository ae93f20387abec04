// The line reader believes neither its configuration nor the instrument: up to the first zero byte the
// configuration, behind it what is sent.

#include "apps/line_reader/reader_config.h"
#include "apps/line_reader/transmission.h"
#include "core/failure.h"
#include "core/text.h"

#include <QByteArray>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace sheetwright;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const qsizetype zero = bytes.indexOf('\0');
    const QByteArrayView sent = zero < 0 ? QByteArrayView() : QByteArrayView(bytes).sliced(zero + 1);
    Ignoring([&] {
        const ReaderConfig config = ParseReaderConfig(DecodeFileText(zero < 0 ? bytes : bytes.first(zero)));
        Transmission transmission(config, [](const QString&) {});
        const qsizetype half = sent.size() / 2;
        transmission.Take(sent.first(half));
        transmission.Take(sent.sliced(half));
        transmission.Finish(Silence::Closed);
    });
    return 0;
}

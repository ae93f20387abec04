// Tokens of any command line stay the same when a command line is made of them and cut again.

#include "core/start_up.h"

#include <QByteArrayView>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString commandLine = QString::fromUtf8(QByteArrayView(data, static_cast<qsizetype>(size)));
    const QStringList tokens = sheetwright::CommandLineTokens(commandLine);
    if (tokens.isEmpty()) return 0;
    if (sheetwright::CommandLineTokens(sheetwright::CommandLineOf(tokens)) != tokens) std::abort();
    return 0;
}

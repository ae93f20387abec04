// Reads the lines that an instrument sends over a network or a serial port into a table. Which instrument it
// is stands in a configuration; docs/line-reader.md tells its form.

#include "apps/driver_program/driver_program.h"
#include "apps/line_reader/connection.h"
#include "apps/line_reader/reader_config.h"
#include "apps/line_reader/transmission.h"
#include "core/failure.h"
#include "core/paths.h"
#include "core/text.h"

namespace sheetwright {

namespace {

constexpr QStringView kHelp =
    u"Receives lines from an instrument and writes them as a table.\n"
    u"\n"
    u"  --config FILE      tells the connection, the lines and the columns\n"
    u"  --output FILE      the table to write; one that is there is replaced\n"
    u"  --help, --version  tell about the program";

void Tell(const QString& text) {
    TellProgress(text);
}

ReaderConfig ConfigOf(const QString& path) {
    QByteArray bytes;
    try {
        bytes = ReadWholeFile(path);
    } catch (const Failure& caught) {
        throw Failure(caught.Number(), QStringLiteral("%1 can't be read: %2").arg(path, caught.Text()));
    }
    return ParseReaderConfig(DecodeFileText(bytes));
}

void Fetch(const cli::CommandLine& line) {
    const QString configPath = RequiredValue(line, u"config");
    const QString output = RequiredValue(line, u"output");
    const ReaderConfig config = ConfigOf(configPath);
    Transmission transmission(config, Tell);
    ReceiveFromInstrument(config.connection, transmission, Tell);
    transmission.Table().WriteTo(output);
    TellProgress(QStringLiteral("Records written: %1").arg(transmission.Table().RecordCount()));
}

}  // namespace

}  // namespace sheetwright

int main(int argc, char** argv) {
    const sheetwright::DriverProgram program{u"sheetwright-line-reader",
                                             u"--config FILE --output FILE",
                                             sheetwright::kHelp,
                                             {{u"config"}, {u"output"}},
                                             sheetwright::Fetch};
    return sheetwright::RunDriverProgram(program, argc, argv);
}

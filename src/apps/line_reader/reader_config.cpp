#include "apps/line_reader/reader_config.h"

#include <array>

namespace sheetwright {

namespace {

constexpr int kMostPort = 65'535;
constexpr int kUsualPort = 5'025;
constexpr int kLongestEnd = 16;

void RefuseOtherSections(const std::vector<IniSection>& sections) {
    const QStringList known{QStringLiteral("Connection"), QStringLiteral("Lines"), QStringLiteral("Columns")};
    for (const IniSection& section : sections)
        if (!known.contains(section.name, Qt::CaseInsensitive))
            RefuseConfiguration(
                QStringLiteral("[%1] is none of its sections %2").arg(section.name, known.join(u' ')));
}

void ReadSerialPort(SectionReader& section, ConnectionConfig& connection) {
    connection.device = section.Text(u"Device");
    connection.baud = section.Number(u"Baud", 9'600, 50, 4'000'000);
    connection.dataBits = section.Number(u"DataBits", 8, 5, 8);
    connection.parity = static_cast<Parity>(
        section.Choice(u"Parity", {QStringLiteral("none"), QStringLiteral("even"), QStringLiteral("odd"),
                                   QStringLiteral("mark"), QStringLiteral("space")}));
    connection.stopBits = static_cast<StopBits>(
        section.Choice(u"StopBits", {QStringLiteral("1"), QStringLiteral("1.5"), QStringLiteral("2")}));
    connection.flowControl = static_cast<FlowControl>(section.Choice(
        u"FlowControl", {QStringLiteral("none"), QStringLiteral("hardware"), QStringLiteral("software")}));
    if (connection.device.isEmpty()) section.Refuse(u"Device", QStringLiteral("the name of a serial port"));
}

ConnectionConfig ReadConnection(const std::vector<IniSection>& sections, bool isUtf8) {
    SectionReader section(sections, u"Connection");
    ConnectionConfig connection;
    connection.isSerial = section.Choice(u"Kind", {QStringLiteral("tcp"), QStringLiteral("serial")}) == 1;
    if (connection.isSerial) {
        ReadSerialPort(section, connection);
    } else {
        connection.host = section.Text(u"Host", QStringLiteral("127.0.0.1"));
        connection.port = section.Number(u"Port", kUsualPort, 1, kMostPort);
    }
    connection.connectTimeout = section.Milliseconds(u"ConnectTimeout", 5);
    connection.idleTimeout = section.Milliseconds(u"IdleTimeout", 10);
    connection.send = section.Bytes(u"Send", {}, isUtf8);
    section.RefuseOthers();
    return connection;
}

LinesConfig ReadLines(SectionReader& section) {
    LinesConfig lines;
    lines.isUtf8 =
        section.Choice(u"Encoding", {QStringLiteral("utf-8"), QStringLiteral("windows-1252")}) == 0;
    lines.end = section.Bytes(u"End", QStringLiteral("\\n"), lines.isUtf8);
    if (lines.end.isEmpty() || lines.end.size() > kLongestEnd)
        section.Refuse(u"End", QStringLiteral("1 to %1 bytes").arg(kLongestEnd));
    lines.endMark = section.Text(u"EndMark");
    if (const QString skip = section.Text(u"Skip"); !skip.isEmpty()) lines.skip = CsvValues(skip);
    lines.skip.removeAll(QString());
    lines.skipsBadLines =
        section.Choice(u"BadLines", {QStringLiteral("refuse"), QStringLiteral("skip")}) == 1;
    lines.maximumLines = section.Number(u"MaximumLines", 100'000, 1, 1'000'000);
    lines.maximumLength = section.Number(u"MaximumLineLength", 4'096, 1, 1'000'000);
    return lines;
}

}  // namespace

ReaderConfig ParseReaderConfig(const QString& text) {
    const std::vector<IniSection> sections = ParseIni(text);
    RefuseOtherSections(sections);
    SectionReader section(sections, u"Lines");
    LinesConfig lines = ReadLines(section);
    const QString separator = section.Text(u"Separator", QStringLiteral("csv"));
    section.RefuseOthers();
    const bool isUtf8 = lines.isUtf8;
    return {ReadConnection(sections, isUtf8), std::move(lines), RecordLayout(separator, sections)};
}

}  // namespace sheetwright

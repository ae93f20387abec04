#pragma once

// What a configuration of the line reader says. Its form is in docs/line-reader.md.

#include "apps/line_reader/record_layout.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace sheetwright {

enum class Parity { None, Even, Odd, Mark, Space };
enum class StopBits { One, OneAndHalf, Two };
enum class FlowControl { None, Hardware, Software };

struct ConnectionConfig {
    bool isSerial = false;
    QString host;
    int port = 0;

    QString device;
    int baud = 0;
    int dataBits = 0;
    Parity parity = Parity::None;
    StopBits stopBits = StopBits::One;
    FlowControl flowControl = FlowControl::None;

    int connectTimeout = 0;  // milliseconds
    int idleTimeout = 0;     // milliseconds
    QByteArray send;
};

struct LinesConfig {
    QByteArray end;
    QString endMark;  // "" for none
    bool isUtf8 = true;
    QStringList skip;
    bool skipsBadLines = false;
    int maximumLines = 0;
    int maximumLength = 0;  // bytes
};

struct ReaderConfig {
    ConnectionConfig connection;
    LinesConfig lines;
    RecordLayout layout;
};

// Raises 321 for text that makes no sense as a configuration, and says where.
[[nodiscard]] ReaderConfig ParseReaderConfig(const QString& text);

}  // namespace sheetwright

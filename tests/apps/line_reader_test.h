#pragma once

// The line reader and an instrument on loopback.

#include "apps/driver_program_test.h"
#include "support/short_text.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>

namespace sheetwright {

inline constexpr int kDeadline = 60'000;

// The network side of an instrument.
class Instrument {
  public:
    Instrument() { m_server.listen(QHostAddress::LocalHost); }

    [[nodiscard]] QByteArray Port() const { return QByteArray::number(m_server.serverPort()); }
    [[nodiscard]] bool Accept() {
        if (!m_server.waitForNewConnection(kDeadline)) return false;
        m_socket = m_server.nextPendingConnection();
        return true;
    }
    // Each call is at least one packet of its own.
    void Send(const QByteArray& bytes) {
        m_socket->write(bytes);
        while (m_socket->bytesToWrite() > 0 && m_socket->waitForBytesWritten(kDeadline)) {
        }
    }
    [[nodiscard]] QByteArray Receive(qsizetype count) {
        QByteArray bytes;
        while (bytes.size() < count &&
               (m_socket->bytesAvailable() > 0 || m_socket->waitForReadyRead(kDeadline)))
            bytes += m_socket->readAll();
        return bytes;
    }
    void Close() {
        m_socket->disconnectFromHost();
        if (m_socket->state() != QAbstractSocket::UnconnectedState) m_socket->waitForDisconnected(kDeadline);
    }

  private:
    QTcpServer m_server;
    QTcpSocket* m_socket = nullptr;  // the server's
};

class LineReader : public DriverProgramTest {
  protected:
    LineReader() : DriverProgramTest(S("sheetwright-line-reader")) {}

    [[nodiscard]] QStringList Arguments() const {
        return {S("--config"), Path(S("reader.ini")), S("--output"), OutputPath()};
    }
    // A configuration for the instrument; `lines` and `columns` are the contents of their sections.
    void Configure(const QByteArray& lines, const QByteArray& columns = "Point=1\nReading=2\n",
                   const QByteArray& connection = "IdleTimeout=60\n") const {
        Write(S("reader.ini"), "[Connection]\nPort=" + m_instrument.Port() + "\n" + connection + "[Lines]\n" +
                                   lines + "[Columns]\n" + columns);
    }
    // Runs the reader against an instrument that sends these packets and closes the connection.
    CliResult Receive(const QList<QByteArray>& packets) {
        QFile::remove(OutputPath());
        QProcess process;
        Start(process, Arguments());
        EXPECT_TRUE(m_instrument.Accept());
        for (const QByteArray& packet : packets)
            m_instrument.Send(packet);
        m_instrument.Close();
        return ResultOf(process);
    }
    void ExpectNothing(const CliResult& result, const std::string& words) const {
        EXPECT_EQ(result.status, 1) << result.out;
        EXPECT_EQ(result.err, "error: " + words + "\n");
        EXPECT_TRUE(Delivered().isEmpty());
    }
    // Runs with a configuration that makes no sense.
    void ExpectRefused(const QByteArray& config, const std::string& words) const {
        Write(S("reader.ini"), config);
        ExpectNothing(Run(Arguments()), "The configuration makes no sense: " + words);
    }

    Instrument m_instrument;
};

}  // namespace sheetwright

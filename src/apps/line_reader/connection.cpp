#include "apps/line_reader/connection.h"

#include "apps/line_reader/transmission.h"
#include "core/failure.h"

#include <QNetworkProxy>
#include <QSerialPort>
#include <QTcpSocket>

#include <array>
#include <memory>

namespace sheetwright {

namespace {

constexpr qint64 kPiece = 65'536;
constexpr qint64 kHeldBack = 1'000'000;  // what may wait unread

[[noreturn]] void Break(const QString& text, const QString& reason) {
    throw Failure(failure::kDeviceError, QStringLiteral("%1: %2").arg(text, reason));
}

std::unique_ptr<QTcpSocket> ConnectedSocket(const ConnectionConfig& config) {
    auto socket = std::make_unique<QTcpSocket>();
    socket->setProxy(QNetworkProxy::NoProxy);
    socket->setReadBufferSize(kHeldBack);
    socket->connectToHost(config.host, static_cast<quint16>(config.port));
    if (!socket->waitForConnected(config.connectTimeout))
        Break(QStringLiteral("No connection to %1, port %2").arg(config.host, QString::number(config.port)),
              socket->errorString());
    return socket;
}

void SetUp(QSerialPort& port, const ConnectionConfig& config) {
    constexpr std::array kParities{QSerialPort::NoParity, QSerialPort::EvenParity, QSerialPort::OddParity,
                                   QSerialPort::MarkParity, QSerialPort::SpaceParity};
    constexpr std::array kStopBits{QSerialPort::OneStop, QSerialPort::OneAndHalfStop, QSerialPort::TwoStop};
    constexpr std::array kFlowControls{QSerialPort::NoFlowControl, QSerialPort::HardwareControl,
                                       QSerialPort::SoftwareControl};
    port.setBaudRate(config.baud);
    port.setDataBits(static_cast<QSerialPort::DataBits>(config.dataBits));
    port.setParity(kParities[static_cast<std::size_t>(config.parity)]);
    port.setStopBits(kStopBits[static_cast<std::size_t>(config.stopBits)]);
    port.setFlowControl(kFlowControls[static_cast<std::size_t>(config.flowControl)]);
}

std::unique_ptr<QSerialPort> OpenPort(const ConnectionConfig& config) {
    auto port = std::make_unique<QSerialPort>(config.device);
    SetUp(*port, config);
    port->setReadBufferSize(kHeldBack);
    if (!port->open(QIODevice::ReadWrite))
        Break(QStringLiteral("%1 can't be opened").arg(config.device), port->errorString());
    return port;
}

void Send(QIODevice& device, const ConnectionConfig& config) {
    if (config.send.isEmpty()) return;
    bool isSent = device.write(config.send) == config.send.size();
    while (isSent && device.bytesToWrite() > 0)
        isSent = device.waitForBytesWritten(config.connectTimeout);
    if (!isSent) Break(QStringLiteral("Nothing can be sent to the instrument"), device.errorString());
}

bool IsClosed(const QTcpSocket& socket) {
    return socket.state() != QAbstractSocket::ConnectedState;
}

// A port is not closed by the other side: it breaks, and what the system says about that misleads.
bool IsClosed(const QSerialPort& port) {
    if (port.error() != QSerialPort::TimeoutError && port.error() != QSerialPort::NoError)
        throw Failure(failure::kDeviceError, QStringLiteral("The serial port broke off"));
    return false;
}

template <typename Device>
void Receive(Device& device, const ConnectionConfig& config, Transmission& transmission) {
    while (!transmission.IsOver()) {
        const bool isWaiting = device.bytesAvailable() == 0;
        if (!isWaiting || device.waitForReadyRead(config.idleTimeout) || device.bytesAvailable() > 0) {
            transmission.Take(device.read(kPiece));
        } else {
            return transmission.Finish(IsClosed(device) ? Silence::Closed : Silence::Idle);
        }
    }
}

}  // namespace

void ReceiveFromInstrument(const ConnectionConfig& config, Transmission& transmission,
                           const std::function<void(const QString&)>& tell) {
    if (config.isSerial) {
        tell(QStringLiteral("Opening %1").arg(config.device));
        const std::unique_ptr<QSerialPort> port = OpenPort(config);
        Send(*port, config);
        Receive(*port, config, transmission);
    } else {
        tell(QStringLiteral("Connecting to %1, port %2").arg(config.host, QString::number(config.port)));
        const std::unique_ptr<QTcpSocket> socket = ConnectedSocket(config);
        Send(*socket, config);
        Receive(*socket, config, transmission);
    }
}

}  // namespace sheetwright

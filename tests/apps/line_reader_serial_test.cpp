// The line reader's serial side, with a pseudo terminal in place of a port.

#include "apps/driver_program_test.h"
#include "support/short_text.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <unistd.h>

#include <array>

namespace sheetwright {
namespace {

// The instrument's end of a serial line.
class SerialInstrument {
  public:
    SerialInstrument() {
        if (openpty(&m_own, &m_other, m_name.data(), nullptr, nullptr) != 0) m_name[0] = '\0';
        ::fcntl(m_own, F_SETFD, FD_CLOEXEC);  // only then it is unplugged when it is closed here
    }
    SerialInstrument(const SerialInstrument&) = delete;
    SerialInstrument& operator=(const SerialInstrument&) = delete;
    ~SerialInstrument() {
        Unplug();
        ::close(m_other);
    }

    [[nodiscard]] QByteArray Name() const { return m_name.data(); }
    void Unplug() {
        if (m_own >= 0) ::close(m_own);
        m_own = -1;
    }
    void Send(QByteArrayView bytes) const {
        ASSERT_EQ(::write(m_own, bytes.data(), std::size_t(bytes.size())), bytes.size());
    }
    [[nodiscard]] QByteArray Receive(qsizetype count) const {
        constexpr int kDeadline = 60'000;
        QByteArray bytes;
        pollfd waiting{m_own, POLLIN, 0};
        while (bytes.size() < count && ::poll(&waiting, 1, kDeadline) == 1) {
            char byte = 0;
            if (::read(m_own, &byte, 1) != 1) break;
            bytes += byte;
        }
        return bytes;
    }

  private:
    int m_own = -1;
    int m_other = -1;  // kept open, so that the line does not break between openings
    std::array<char, 256> m_name{};
};

class SerialLineReader : public DriverProgramTest {
  protected:
    SerialLineReader() : DriverProgramTest(S("sheetwright-line-reader")) {}

    void StartReader(QProcess& process, const QByteArray& device, const QByteArray& more = {}) const {
        Write(S("reader.ini"),
              "[Connection]\nKind=serial\nDevice=" + device +
                  "\nBaud=19200\nDataBits=8\nParity=none\nStopBits=1\nFlowControl=none\nSend=GO\\r\n" +
                  "IdleTimeout=60\n[Lines]\nEndMark=END\nSeparator=;\n" + more +
                  "[Columns]\nPoint=1\nReading=2\n");
        Start(process, {S("--config"), Path(S("reader.ini")), S("--output"), OutputPath()});
    }

    SerialInstrument m_instrument;
};

TEST_F(SerialLineReader, LinesBecomeRecords) {
    ASSERT_NE(m_instrument.Name(), "");
    QProcess process;
    StartReader(process, m_instrument.Name());
    ASSERT_EQ(m_instrument.Receive(3), "GO\r");
    for (const char* packet : {"1;0.", "25\r\n2;>200\r", "\nEND\r\n"})
        m_instrument.Send(packet);
    const CliResult result = ResultOf(process);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(Output(), "Point,Reading\r\n1,0.25\r\n2,>200\r\n");
}

TEST_F(SerialLineReader, APortThatBreaksOffDeliversNothing) {
    QProcess process;
    StartReader(process, m_instrument.Name());
    ASSERT_EQ(m_instrument.Receive(3), "GO\r");
    m_instrument.Send("1;2\r\n");
    ASSERT_TRUE(WaitForWords(process, "Record 1: "));
    m_instrument.Unplug();
    const CliResult result = ResultOf(process);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "error: The serial port broke off\n");
    EXPECT_TRUE(Delivered().isEmpty());
}

TEST_F(SerialLineReader, APortThatIsNotThereIsAFailure) {
    QProcess process;
    StartReader(process, "/dev/no-such-port");
    const CliResult result = ResultOf(process);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, ::testing::StartsWith("error: /dev/no-such-port can't be opened: "));
    EXPECT_TRUE(Delivered().isEmpty());
}

TEST_F(SerialLineReader, AFileIsNoPort) {
    Write(S("plain"), "1;2\n");
    QProcess process;
    StartReader(process, Path(S("plain")).toUtf8());
    EXPECT_EQ(ResultOf(process).status, 1);
    EXPECT_EQ(Read(S("plain")), "1;2\n");
    EXPECT_TRUE(Delivered().isEmpty());
}

}  // namespace
}  // namespace sheetwright

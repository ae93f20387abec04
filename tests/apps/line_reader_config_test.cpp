// What the line reader's configuration says, and what of it makes no sense.

#include "apps/line_reader_test.h"

namespace sheetwright {
namespace {

using LineReaderConfiguration = LineReader;

TEST_F(LineReaderConfiguration, FieldsAreSeparatedAsToldAndTakenInAnyOrder) {
    Configure("Separator=;\n", "B=2\nA=1\nAgain=2\nUnit=\"kΩ, fixed\"\n");
    EXPECT_EQ(Receive({"1;2;3\n"}).status, 0);
    EXPECT_EQ(Output(), "B,A,Again,Unit\r\n2,1,2,\"kΩ, fixed\"\r\n");
    Configure("Separator=tab\n");
    EXPECT_EQ(Receive({"1, 5\t \"2\n"}).status, 0);
    EXPECT_EQ(Output(), "Point,Reading\r\n\"1, 5\",\" \"\"2\"\r\n");
    Configure("Separator=blanks\n");
    EXPECT_EQ(Receive({"  1    2\t\n"}).status, 0);
    EXPECT_EQ(Output(), "Point,Reading\r\n1,2\r\n");
}

TEST_F(LineReaderConfiguration, FieldsAtFixedPositionsAreCutOut) {
    Configure("Separator=fixed\n", "Point=1,4 | trim\nReading=5,6 | trim\nRaw=5,2\n");
    EXPECT_EQ(Receive({"  12  0.25\n   1 7\n"}).status, 0);
    EXPECT_EQ(Output(), "Point,Reading,Raw\r\n12,0.25,\"  \"\r\n1,7,\" 7\"\r\n");
    ExpectNothing(Receive({"  12\n"}),
                  "Line 1 does not fit: it has 4 characters, the last field starts at 5: \"  12\"");
}

TEST_F(LineReaderConfiguration, FixedPositionsCutNoCharacterInHalf) {
    Configure("Separator=fixed\n", "Point=1,3\nReading=4,2\n");
    EXPECT_EQ(Receive({"1😀25\n"}).status, 0);
    EXPECT_EQ(Output(), "Point,Reading\r\n1😀,25\r\n");
    ExpectNothing(Receive({"12😀5\n"}),
                  "Line 1 does not fit: column \"Point\" begins or ends within a character: \"12😀5\"");
}

TEST_F(LineReaderConfiguration, DatesBecomeEightDigits) {
    Configure("", "A=1 | date dd.MM.yyyy\nB=2 | date d/M/yy*\nC=3 | date dd-MMM-yyyy\n");
    EXPECT_EQ(Receive({" 12.03.2026 ,2/3/26 10:15,09-mar-2026\n29.02.2000,29/2/00,\n"}).status, 0);
    EXPECT_EQ(Output(), "A,B,C\r\n20260312,20260302,20260309\r\n20000229,20000229,\r\n");
}

TEST_F(LineReaderConfiguration, ADateThatIsNoneDeliversNothing) {
    Configure("", "A=1 | date dd.MM.yyyy\n");
    for (const char* text : {"30.02.2026", "1.2.2026", "12.03.26", "12.03.2026x", "12/03/2026", "00.01.2026"})
        ExpectNothing(Receive({QByteArray(text) + '\n'}),
                      std::string("Line 1 does not fit: \"") + text +
                          "\" of column \"A\" is no date of the form dd.MM.yyyy: \"" + text + "\"");
}

TEST_F(LineReaderConfiguration, WordsBecomeBooleans) {
    Configure("", "A=1 | boolean ok, pass / fail\n");
    EXPECT_EQ(Receive({"OK\nPass\nfail\n\"\"\n"}).status, 0);
    EXPECT_EQ(Output(), "A\r\n-1\r\n-1\r\n0\r\n\"\"\r\n");
    ExpectNothing(Receive({"maybe\n"}),
                  "Line 1 does not fit: \"maybe\" of column \"A\" is neither true nor false: \"maybe\"");
}

TEST_F(LineReaderConfiguration, AConfigurationThatMakesNoSenseIsToldByLine) {
    ExpectRefused("Port=1\n", "line 1: \"Port\" stands before the first section");
    ExpectRefused("[Connection]\nnonsense\n", "line 2: \"nonsense\" is no \"key = value\"");
    ExpectRefused("[Lines]\n[lines]\n", "line 2: section [lines] is given twice");
    ExpectRefused("[Lines]\nEnd=;\nend=,\n", "line 3: \"end\" is given twice");
    ExpectRefused("[Line]\n", "[Line] is none of its sections Connection Lines Columns");
    ExpectRefused("[Columns]\nA=1\n[Connection]\nPorts=1\n",
                  "line 4: \"Ports\" is nothing that [Connection] knows");
    ExpectRefused("[Connection]\nPort=65536\n[Columns]\nA=1\n",
                  "line 2: \"Port\" of [Connection] must be a number from 1 to 65535");
    ExpectRefused("[Connection]\nIdleTimeout=0\n",
                  "line 2: \"IdleTimeout\" of [Connection] must be seconds from 0.05 to 3600");
    ExpectRefused("[Connection]\nKind=usb\n", "line 2: \"Kind\" of [Connection] must be one of tcp, serial");
    ExpectRefused("[Connection]\nKind=serial\n",
                  "\"Device\" of [Connection] must be the name of a serial port");
    ExpectRefused("[Connection]\nSend=a\\q\n",
                  "line 2: \"Send\" of [Connection] must be text of the encoding, with \\r \\n \\t \\\\ or "
                  "\\xNN in it");
}

TEST_F(LineReaderConfiguration, ColumnsThatMakeNoSenseAreToldByLine) {
    ExpectRefused("", "[Columns] must name 1 to 32767 columns");
    ExpectRefused("[Lines]\nSeparator=::\n", "Separator must be one character, csv, tab, blanks, fixed");
    for (const char* place : {"0", "x", "1,2", "-1", "1000001", ""})
        ExpectRefused(QByteArray("[Columns]\nA=") + place + '\n',
                      "line 2: column \"A\" must be the number of a field or a text in quotes");
    for (const char* place : {"1", "0,1", "1,0", "1,", ",1", "1,2,3"})
        ExpectRefused(QByteArray("[Lines]\nSeparator=fixed\n[Columns]\nA=") + place + '\n',
                      "line 4: column \"A\" must be \"start,length\" or a text in quotes");
    ExpectRefused("[Columns]\nA=\"x\n", "line 2: column \"A\" must be a text between two quotes");
    ExpectRefused("[Columns]\nA=1 | upper\n",
                  "line 2: column \"A\" must be converted by trim, date or boolean");
    ExpectRefused("[Columns]\nA=1 | boolean yes\n",
                  "line 2: column \"A\" must be converted by \"boolean words / words\"");
    for (const char* format : {"dd.MM", "ddd.MM.yyyy", "dd.dd.MM.yyyy", "MMMM d yyyy", "dd.MM.y"})
        ExpectRefused(QByteArray("[Columns]\nA=1 | date ") + format + '\n',
                      "line 2: column \"A\" must be converted by \"date\" and a format such as dd.MM.yyyy");
}

TEST_F(LineReaderConfiguration, AConfigurationThatCantBeReadIsAFailure) {
    ExpectNothing(Run(Arguments()), Path(S("reader.ini")).toStdString() + " can't be read: File not found");
}

TEST_F(LineReaderConfiguration, ThePC50sConfigurationReadsWhatItsSampleHolds) {
    const QString folder = S(SHEETWRIGHT_SOURCE_DIR "/share/drivers/PC50/");
    QFile config(folder + S("instrument.ini"));
    QFile sample(folder + S("Data/calibration_certificate.csv"));
    ASSERT_TRUE(config.open(QIODevice::ReadOnly) && sample.open(QIODevice::ReadOnly));
    Write(S("reader.ini"), config.readAll().replace("Port=5025", "Port=" + m_instrument.Port()));
    QByteArray table = sample.readAll().replace("\r\n", "\n");
    const QByteArray records = table.sliced(table.indexOf('\n') + 1);
    QProcess process;
    Start(process, Arguments());
    ASSERT_TRUE(m_instrument.Accept());
    EXPECT_EQ(m_instrument.Receive(10), "READINGS?\n");
    m_instrument.Send("# PC50\n" + records + "END\n");
    EXPECT_EQ(ResultOf(process).status, 0);
    EXPECT_EQ(Output().replace("\r\n", "\n"), table);
}

// The configuration and the lines sent of an example in the manual, and the table they give.
struct Example {
    QByteArray config;
    QByteArray lines;
    QByteArray table;
};

QByteArray BlockOf(const QByteArray& text, const QByteArray& kind) {
    const qsizetype start = text.indexOf("```" + kind + '\n');
    const QByteArray block = text.sliced(start + kind.size() + 4);
    return start < 0 ? QByteArray() : block.first(block.indexOf("```"));
}

Example ExampleOf(const QByteArray& heading) {
    QFile manual(S(SHEETWRIGHT_SOURCE_DIR "/docs/line-reader.md"));
    if (!manual.open(QIODevice::ReadOnly)) return {};
    const QByteArray text = manual.readAll();
    const QByteArray section = text.sliced(text.indexOf("## Example: " + heading));
    return {BlockOf(section, "ini"), BlockOf(section, "text"), BlockOf(section, "csv")};
}

TEST_F(LineReaderConfiguration, TheManualsExampleOnTheNetworkGivesWhatItSays) {
    Example example = ExampleOf("a meter on the network");
    Write(S("reader.ini"), example.config.replace("192.168.1.40", "127.0.0.1")
                               .replace("Port=5025", "Port=" + m_instrument.Port()));
    EXPECT_EQ(Receive({example.lines}).status, 0);
    EXPECT_EQ(Output().replace("\r\n", "\n"), example.table);
}

TEST_F(LineReaderConfiguration, TheManualsExampleOfFixedPositionsGivesWhatItSays) {
    Example example = ExampleOf("a balance on a serial port");
    const QByteArray lines = example.config.sliced(example.config.indexOf("[Lines]"));
    Write(S("reader.ini"), "[Connection]\nPort=" + m_instrument.Port() + '\n' + lines);
    EXPECT_EQ(Receive({example.lines.replace("\n", "\r\n")}).status, 0);
    EXPECT_EQ(Output().replace("\r\n", "\n"), example.table);
}

}  // namespace
}  // namespace sheetwright

// The line reader's transmissions: how they begin, what comes, how they end.

#include "apps/line_reader_test.h"

namespace sheetwright {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST_F(LineReader, LinesBecomeRecords) {
    Configure("EndMark=END\n");
    const CliResult result = Receive({"1,0.25\n2,>200\n\"a, b\",\"say \"\"x\"\"\"\nEND\n"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(result.out, StartsWith("Connecting to 127.0.0.1, port "));
    EXPECT_THAT(result.out, EndsWith("\nRecord 3: a, b, say \"x\"\nRecords written: 3\n"));
    EXPECT_EQ(Output(), "Point,Reading\r\n1,0.25\r\n2,>200\r\n\"a, b\",\"say \"\"x\"\"\"\r\n");
    EXPECT_EQ(Delivered().size(), 1);
}

TEST_F(LineReader, PacketsMayBreakAnywhereAndLinesMayEndInCrLf) {
    Configure("EndMark=END\n");
    EXPECT_EQ(Receive({"1,0.", "25\r", "\n2", ",3\r\n", "EN", "D\r", "\n"}).status, 0);
    EXPECT_EQ(Output(), "Point,Reading\r\n1,0.25\r\n2,3\r\n");
}

TEST_F(LineReader, LinesMayEndInAnyBytes) {
    Configure("EndMark=END\nEnd=\\r\\x0a\\x1e\n");
    EXPECT_EQ(Receive({"1,2\r\n\x1e"
                       "3,4\r",
                       "\n",
                       "\x1e"
                       "END\r\n\x1e"})
                  .status,
              0);
    EXPECT_EQ(Output(), "Point,Reading\r\n1,2\r\n3,4\r\n");
}

TEST_F(LineReader, WhatFollowsTheEndMarkIsNotRead) {
    Configure("EndMark=END\nMaximumLineLength=10\n");
    for (const QByteArray& rest : {QByteArray("nonsense\n"), QByteArray(1'000, 'x')}) {
        EXPECT_EQ(Receive({"1,2\nEND\n" + rest}).status, 0);
        EXPECT_EQ(Output(), "Point,Reading\r\n1,2\r\n");
    }
}

TEST_F(LineReader, AnEndMarkNeedsNoLineEndBeforeTheConnectionCloses) {
    Configure("EndMark=>\n");
    EXPECT_EQ(Receive({"1,2\n>"}).status, 0);
    EXPECT_EQ(Output(), "Point,Reading\r\n1,2\r\n");
}

TEST_F(LineReader, NothingBeforeTheEndMarkIsAnEmptyTable) {
    Configure("EndMark=END\n");
    EXPECT_EQ(Receive({"END\n"}).status, 0);
    EXPECT_EQ(Output(), "Point,Reading\r\n");
}

TEST_F(LineReader, AConnectionClosedBeforeTheEndMarkDeliversNothing) {
    Configure("EndMark=END\n");
    ExpectNothing(Receive({"1,2\n3,4\n"}),
                  "The instrument closed the connection before the end mark \"END\"");
}

TEST_F(LineReader, WithoutAnEndMarkTheClosingOfTheConnectionIsTheEnd) {
    Configure("");
    EXPECT_EQ(Receive({"1,2\n3,4\n"}).status, 0);
    EXPECT_EQ(Output(), "Point,Reading\r\n1,2\r\n3,4\r\n");
}

TEST_F(LineReader, ALineThatIsCutOffDeliversNothing) {
    Configure("");
    ExpectNothing(Receive({"1,2\n3,4"}), "The instrument closed the connection in the middle of line 2");
}

TEST_F(LineReader, AConnectionWithoutAReadingDeliversNothing) {
    Configure("Skip=#\n");
    ExpectNothing(Receive({"# ready\n"}), "The instrument closed the connection without a reading");
}

TEST_F(LineReader, WithoutAnEndMarkSilenceIsTheEnd) {
    Configure("", "Point=1\n", "IdleTimeout=2\n");
    QProcess process;
    Start(process, Arguments());
    ASSERT_TRUE(m_instrument.Accept());
    m_instrument.Send("1\n2\n");
    EXPECT_EQ(ResultOf(process).status, 0);
    EXPECT_EQ(Output(), "Point\r\n1\r\n2\r\n");
}

TEST_F(LineReader, SilenceBeforeTheEndMarkDeliversNothing) {
    Configure("EndMark=END\n", "Point=1\n", "IdleTimeout=0.1\n");
    QProcess process;
    Start(process, Arguments());
    ASSERT_TRUE(m_instrument.Accept());
    ExpectNothing(ResultOf(process), "The instrument stopped sending before the end mark \"END\"");
}

TEST_F(LineReader, AConnectionThatIsRefusedIsAFailure) {
    QByteArray port;
    {
        const Instrument gone;
        port = gone.Port();
    }
    Write(S("reader.ini"), "[Connection]\nPort=" + port + "\n[Columns]\nPoint=1\n");
    ExpectNothing(Run(Arguments()),
                  "No connection to 127.0.0.1, port " + port.toStdString() + ": Connection refused");
}

TEST_F(LineReader, WhatTheConfigurationSendsIsReceived) {
    Configure("EndMark=END\n", "Point=1\n", "Send=*IDN?\\t\\\\\\x07\\r\\n\nIdleTimeout=60\n");
    QProcess process;
    Start(process, Arguments());
    ASSERT_TRUE(m_instrument.Accept());
    EXPECT_EQ(m_instrument.Receive(10), QByteArray("*IDN?\t\\\x07\r\n"));
    m_instrument.Send("1\nEND\n");
    EXPECT_EQ(ResultOf(process).status, 0);
}

TEST_F(LineReader, ALineOfTooFewFieldsDeliversNothing) {
    Configure("EndMark=END\n");
    ExpectNothing(Receive({"1,2\n3\nEND\n"}), "Line 2 does not fit: it has 1 fields, 2 are needed: \"3\"");
}

TEST_F(LineReader, BadLinesArePassedOverWhereThatIsWanted) {
    Configure("EndMark=END\nBadLines=skip\n");
    const CliResult result = Receive({"1,2\n3\n\xff,5\n6\x07,7\n8,9\nEND\n"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Output(), "Point,Reading\r\n1,2\r\n8,9\r\n");
    EXPECT_THAT(result.out,
                HasSubstr("Line 2 does not fit: it has 1 fields, 2 are needed: \"3\" (passed over)\n"));
    EXPECT_THAT(result.out, HasSubstr("Line 3 does not fit: it is no UTF-8: "));
    EXPECT_THAT(result.out, HasSubstr("Line 4 does not fit: it holds control characters: "));
}

TEST_F(LineReader, LinesBeginningWithTheseTextsAndEmptyOnesArePassedOver) {
    Configure("EndMark=END\nSkip=#,\"Serial, no\"\n");
    EXPECT_EQ(Receive({"Serial, no 7\n#\n\n  \n1,2\nEND\n"}).status, 0);
    EXPECT_EQ(Output(), "Point,Reading\r\n1,2\r\n");
}

TEST_F(LineReader, LimitsHoldAgainstAnInstrumentThatNeverEnds) {
    Configure("MaximumLineLength=10\n");
    ExpectNothing(Receive({"1,2\n", "12345678901\n"}), "Line 2 is longer than 10 bytes");
    ExpectNothing(Receive({"1,2\n", QByteArray(100'000, 'x')}), "Line 2 is longer than 10 bytes");
    Configure("MaximumLines=2\nEndMark=END\n");
    ExpectNothing(Receive({"1,2\n3,4\n5,6\nEND\n"}), "The instrument sends more than 2 lines");
}

TEST_F(LineReader, ALineOfTheLongestLengthIsTaken) {
    Configure("MaximumLineLength=10\n");
    for (const char* line : {"1,34567890\n", "1,34567890\r\n"})
        EXPECT_EQ(Receive({line}).status, 0);
}

TEST_F(LineReader, TheTableIsUtf8WhateverTheInstrumentSends) {
    Configure("Encoding=windows-1252\n");
    EXPECT_EQ(Receive({"20 \xb0"
                       "C,\x80\n"})
                  .status,
              0);
    EXPECT_EQ(Output(), "Point,Reading\r\n20 °C,€\r\n");
    Configure("Encoding=utf-8\n");
    EXPECT_EQ(Receive({"\xef\xbb\xbf"
                       "20 \xc2",
                       "\xb0"
                       "C,Ω\n"})
                  .status,
              0);
    EXPECT_EQ(Output(), "Point,Reading\r\n20 °C,Ω\r\n");
    ExpectNothing(Receive({"20 \xb0"
                           "C,1\n"}),
                  "Line 1 does not fit: it is no UTF-8: \"20 \xef\xbf\xbd"
                  "C,1\"");
}

TEST_F(LineReader, WrongUsageIsTold) {
    const std::string usage = "usage: sheetwright-line-reader --config FILE --output FILE\n";
    const CliResult without = Run({S("--config"), S("x.ini")});
    EXPECT_EQ(without.status, 2);
    EXPECT_EQ(without.err, "error: option --output is needed\n" + usage);
    EXPECT_EQ(Run({S("--output"), S("x.csv")}).err, "error: option --config is needed\n" + usage);
    EXPECT_THAT(Run({S("--help")}).out, StartsWith(usage));
    EXPECT_EQ(Run({S("--version")}).out, "sheetwright-line-reader 1.0.0\n");
}

TEST_F(LineReader, ATableThatCantBeWrittenIsAFailure) {
    Configure("EndMark=END\n");
    QProcess process;
    const QString nowhere = Path(S("missing/table.csv"));
    Start(process, {S("--config"), Path(S("reader.ini")), S("--output"), nowhere});
    ASSERT_TRUE(m_instrument.Accept());
    m_instrument.Send("1,2\nEND\n");
    ExpectNothing(ResultOf(process), nowhere.toStdString() + " can't be written: Path not found");
}

TEST_F(LineReader, StopsAtOnceWhenAskedAndLeavesNoFile) {
    Configure("EndMark=END\n");
    QProcess process;
    Start(process, Arguments());
    ASSERT_TRUE(m_instrument.Accept());
    m_instrument.Send("1,2\n");
    ASSERT_TRUE(WaitForWords(process, "Record 1: "));
    process.terminate();
    ASSERT_TRUE(process.waitForFinished(kDeadline));
    EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
    EXPECT_TRUE(Delivered().isEmpty());
}

}  // namespace
}  // namespace sheetwright

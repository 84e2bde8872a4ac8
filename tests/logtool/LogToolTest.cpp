#include "logtool/LogTool.h"

#include "logtool/Logs.h"
#include "support/Golden.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>
#include <sstream>
#include <streambuf>

namespace portico::logtool {
namespace {

using test::ExpectGolden;
using test::GoldenPath;

const std::string Conversation =
    Log("<Session SessionOpenTimeStamp=\"2004-11-01T16:42:09.000000001-5:00\" "
        "SessionCloseTimeStamp=\"2004-11-01T17:43:10.000000000-5:00\">" +
        Element("AutomaticInstruction", "10", "*OPC?") + Element("Response", "10", "1") +
        Element("Instruction", "11", "MEAS:VOLT?") + Element("Response", "12", "+1.0\n\"a,b\"") +
        Element("AutomaticInstruction", "13", ":SYST:ERR?") + Element("Response", "13", "-113,\"Undefined header\"") +
        Element("Configuration", "14", "<Parameters/>") +
        "</Session><Session SessionOpenTimeStamp=\"2004-11-02T00:00:00.0\">" + Element("Instruction", "15", "*RST") +
        "</Session>");

TEST(LogToolTest, ShowsTheConversation) {
  const auto result = RunOn(Output::Show, Conversation);
  EXPECT_EQ(result.Out, "# session from 2004-11-01T16:42:09.000000001-5:00 to 2004-11-01T17:43:10.000000000-5:00\n"
                        "2004-11-01T16:42:10.000000000-5:00 * *OPC?\n"
                        "2004-11-01T16:42:10.000000000-5:00 < 1\n"
                        "2004-11-01T16:42:11.000000000-5:00 > MEAS:VOLT?\n"
                        "2004-11-01T16:42:12.000000000-5:00 < +1.0\n"
                        "2004-11-01T16:42:12.000000000-5:00 < \"a,b\"\n"
                        "2004-11-01T16:42:13.000000000-5:00 * :SYST:ERR?\n"
                        "2004-11-01T16:42:13.000000000-5:00 < -113,\"Undefined header\"\n"
                        "2004-11-01T16:42:14.000000000-5:00 ! <Parameters/>\n"
                        "# session from 2004-11-02T00:00:00.0, not closed\n"
                        "2004-11-01T16:42:15.000000000-5:00 > *RST\n");
  EXPECT_EQ(result.Err, "");
  EXPECT_EQ(result.Status, 0);
}

TEST(LogToolTest, ShowsHexadecimalPayloadsOfTheGoldenLog) {
  const auto result = RunOn(Output::Show, "", {GoldenPath("log-example.xml").string()});
  EXPECT_EQ(result.Out, "# session from 2004-11-01T16:42:09.000000001-5:00 to 2004-11-01T16:42:15.000000000-5:00\n"
                        "2004-11-01T16:42:11.000000000-5:00 > *IDN?\n"
                        "2004-11-01T16:42:11.000000001-5:00 < ok\n");
}

TEST(LogToolTest, ShowLeavesTheTerminalAlone) {
  const auto result =
      RunOn(Output::Show,
            Log(SessionOf(Element("Response", "01", "a\tb&#7;\x7F\xC2\x9B") + "<X Timestamp=\"&#27;\">07005B00</X>")));
  EXPECT_NE(result.Out.find("< a\tb&#7;??\n"), std::string::npos);
  EXPECT_EQ(result.Status, 1); // an escape character is no XML
  const auto bell = RunOn(Output::Show, Log(SessionOf("<X Timestamp=\"t\">07005B00</X>")));
  EXPECT_EQ(bell.Out, "# session from s, not closed\nt ! ?[\n");
}

TEST(LogToolTest, ExportsCsv) { ExpectGolden("portico-log-export.csv", RunOn(Output::Csv, Conversation).Out); }

TEST(LogToolTest, CsvIsQuotedWhereItMust) {
  const auto result = RunOn(Output::Csv, Log("<Session SessionOpenTimeStamp=\"a,b\">" +
                                             Element("Response", "01", "plain") + Element("Response", "02", "a \"b\"") +
                                             Element("Response", "03", "a\nb\n") + "</Session>"));
  const std::string start = "-,1,\"a,b\",Response,2004-11-01T16:42:";
  EXPECT_EQ(result.Out, "File,Session,SessionOpen,Kind,Timestamp,Text\r\n" + start + "01.000000000-5:00,plain\r\n" +
                            start + "02.000000000-5:00,\"a \"\"b\"\"\"\r\n" + start + "03.000000000-5:00,\"a\nb\"\r\n");
}

TEST(LogToolTest, ExportsJson) { ExpectGolden("portico-log-export.json", RunOn(Output::Json, Conversation).Out); }

TEST(LogToolTest, JsonIsEscaped) {
  const auto result = RunOn(Output::Json, Log(SessionOf("<X Timestamp=\"t\">220"
                                                        "05C000A000D0009000100E90000D8</X>")));
  EXPECT_EQ(result.Out, "[\n{\"file\":\"-\",\"session\":1,\"sessionOpen\":\"s\",\"sessionClose\":null,\"kind\":\"X\","
                        "\"timestamp\":\"t\",\"text\":\"\\\"\\\\\\n\\r\\t\\u0001\xC3\xA9\xEF\xBF\xBD\"}\n]\n");
}

TEST(LogToolTest, JsonOfNothingIsAnEmptyArray) {
  EXPECT_EQ(RunOn(Output::Json, Log("")).Out, "[]\n");
  EXPECT_EQ(RunOn(Output::Json, "no log").Out, "[]\n");
}

TEST(LogToolTest, ExportsTheTypedInstructionsAsACommandFile) {
  EXPECT_EQ(RunOn(Output::Commands, Conversation).Out, "MEAS:VOLT?\n*RST\n");
}

TEST(LogToolTest, AnInstructionThatNoCommandFileHoldsIsLeftOutAndNamed) {
  for (const char* text : {"", "  ", "\n", "A\n\nB", "\xC2\xAE x", "  \xC2\xA9 x", "REM x", "\xE4\xB8\x80"}) {
    const auto result = RunOn(Output::Commands,
                              Log(SessionOf(Element("Instruction", "01", text) + Element("Instruction", "02", "OK"))));
    EXPECT_EQ(result.Out, "OK\n");
    EXPECT_EQ(result.Err, "portico-log: standard input: the instruction of 2004-11-01T16:42:01.000000000-5:00 cannot "
                          "stand in a command file\n");
    EXPECT_EQ(result.Status, 1);
  }
}

TEST(LogToolTest, CountsSessionsDurationsAndErrorAnswers) {
  ExpectGolden("portico-log-stats.txt", RunOn(Output::Statistics, Conversation).Out);
}

TEST(LogToolTest, ListsTheErrorsWithTheirInstructions) {
  const std::string log = Log(
      SessionOf(Element("AutomaticInstruction", "01", ":SYST:ERR?") + Element("Response", "01", "-410,\"Left\"") +
                Element("Instruction", "02", "BAD\t1\r\n") + Element("AutomaticInstruction", "02", ":SYST:ERR?\r\n") +
                Element("Response", "02", "-113,\"Undefined\x7Fheader\"\r\nmore") +
                Element("Instruction", "03", "*TST?") +
                Element("Response", "03", "Timeout expired before the answer was complete: bench, port 5025.\r\n") +
                Element("AutomaticInstruction", "04", "*OPC?") + Element("Response", "04", "1") +
                Element("AutomaticInstruction", "05", ":SYST:ERR?") + Element("Response", "05", "0,\"No error\"")) +
      SessionOf(Element("Response", "06", "The connection was lost.")));
  const auto result = RunOn(Output::Errors, log);
  EXPECT_EQ(result.Out, "standard input:2: -410,\"Left\"\n"
                        "standard input:5: BAD\t1 -> -113,\"Undefined?header\"\n"
                        "standard input:7: *TST? -> Timeout expired before the answer was complete: bench, port 5025.\n"
                        "standard input:12: The connection was lost.\n");
  EXPECT_EQ(result.Err, "");
  EXPECT_EQ(result.Status, 0);
}

TEST(LogToolTest, NamesTheFileOfEachErrorAndPrintsNothingWithoutOne) {
  const std::string golden = GoldenPath("log-example.xml").string();
  const auto result = RunOn(Output::Errors, Conversation, {golden, "-"});
  EXPECT_EQ(result.Out, "standard input:6: MEAS:VOLT? -> -113,\"Undefined header\"\n");
  EXPECT_EQ(RunOn(Output::Errors, "", {golden}).Out, "");
}

TEST(LogToolTest, AddsUpSeveralFiles) {
  const std::string golden = GoldenPath("log-example.xml").string();
  const auto result = RunOn(Output::Statistics, Conversation, {golden, "-"});
  const auto all = result.Out.substr(result.Out.find("all files\n"));
  EXPECT_NE(all.find("  sessions               3\n"), std::string::npos);
  EXPECT_NE(all.find("  instructions           3\n"), std::string::npos);
  EXPECT_NE(all.find("  duration               1:01:07\n"), std::string::npos);
}

TEST(LogToolTest, OnlyAnswersToAutomaticErrorQueriesCount) {
  const auto errors = [](const std::string& entities) {
    const std::string out = RunOn(Output::Statistics, Log(SessionOf(entities))).Out;
    return out.substr(out.find("error answers          ") + 23, 1);
  };
  const auto query = Element("AutomaticInstruction", "01", ":SYST:ERR?");
  EXPECT_EQ(errors(query + Element("Response", "01", "-113,\"x\"")), "1");
  EXPECT_EQ(errors(query + Element("Response", "01", "+0,\"No error\"")), "0");
  EXPECT_EQ(errors(query + Element("Response", "01", "  +12")), "1");
  EXPECT_EQ(errors(query + Element("Response", "01", "nonsense 5")), "0");
  EXPECT_EQ(errors(Element("Instruction", "01", ":SYST:ERR?") + Element("Response", "01", "-113")), "0");
  EXPECT_EQ(errors(Element("AutomaticInstruction", "01", "*opc?") + Element("Response", "01", "1")), "0");
  EXPECT_EQ(errors(query + Element("Instruction", "01", "X") + Element("Response", "01", "7")), "0");
  EXPECT_EQ(errors(query + Element("Response", "01", "0") + Element("Response", "01", "7")), "0");
}

TEST(LogToolTest, ADamagedLogIsShownAsFarAsItGoes) {
  const std::string torn = Head + SessionOf(Element("Instruction", "01", "A")) + "<Session><X>41";
  const auto result = RunOn(Output::Show, torn);
  EXPECT_EQ(result.Out, "# session from s, not closed\n2004-11-01T16:42:01.000000000-5:00 > A\n"
                        "# session from , not closed\n");
  EXPECT_EQ(result.Err, "portico-log: standard input: its end is missing (line 1: no element found)\n");
  EXPECT_EQ(result.Status, 1);
}

TEST(LogToolTest, ABadPayloadIsPassedOverAndNamed) {
  const auto result =
      RunOn(Output::Show,
            Log(SessionOf("<X Timestamp=\"1\">414</X><Y Timestamp=\"2\"/>" + Element("Instruction", "03", "A"))));
  EXPECT_EQ(result.Out, "# session from s, not closed\n2004-11-01T16:42:03.000000000-5:00 > A\n");
  EXPECT_EQ(result.Err, "portico-log: standard input: the entity X of 1 has a payload that is not hexadecimal (and 1 "
                        "more like it)\n");
  EXPECT_EQ(result.Status, 1);
}

TEST(LogToolTest, SaysWhatIsNoLog) {
  const auto complaint = [](const std::string& bytes) {
    const auto result = RunOn(Output::Show, bytes);
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Out, "");
    return result.Err;
  };
  const std::string start = "portico-log: standard input: ";
  EXPECT_EQ(complaint(""), start + "line 1: no element found\n");
  EXPECT_EQ(complaint("x"), start + "line 1: syntax error\n");
  EXPECT_EQ(complaint("<Other/>"), start + "it is no log\n");
  EXPECT_EQ(complaint("<SCPICommLog/>"), start + "it is no log\n");
  EXPECT_EQ(complaint(Head + Head.substr(13) + "</SCPICommLog>"), start + "it has more than one header\n");
  EXPECT_EQ(complaint("<SCPICommLog><Header ApplicationName=\"Other\"/></SCPICommLog>"),
            start + "it is no log of Tolvane Portico\n");
  EXPECT_EQ(complaint("<!DOCTYPE a>" + Log("")), start + "line 1: a document type is not allowed\n");
}

TEST(LogToolTest, TheHeaderMayStandBehindTheSessions) {
  const auto result = RunOn(Output::Show, "<SCPICommLog>" + SessionOf("") + Head.substr(13) + "</SCPICommLog>");
  EXPECT_EQ(result.Out, "# session from s, not closed\n");
  EXPECT_EQ(result.Err, "");
  const auto none = RunOn(Output::Show, "<SCPICommLog>" + SessionOf("") + "</SCPICommLog>");
  EXPECT_EQ(none.Err, "portico-log: standard input: it is no log\n");
  EXPECT_EQ(none.Status, 1);
}

/// A pipe: gives what has been written, and is asked for more only when all of that is used up.
class Pieces final : public std::streambuf {
public:
  Pieces(std::vector<std::string> pieces, const std::ostringstream& out) : m_pieces(std::move(pieces)), m_out(out) {}
  std::vector<std::string> OutBefore; // what stood in the output each time

protected:
  int_type underflow() override {
    OutBefore.push_back(m_out.str());
    if (m_next == m_pieces.size()) return traits_type::eof();
    std::string& piece = m_pieces[m_next++];
    setg(piece.data(), piece.data(), piece.data() + piece.size());
    return traits_type::to_int_type(piece.front());
  }

private:
  std::vector<std::string> m_pieces;
  std::size_t m_next = 0;
  const std::ostringstream& m_out;
};

TEST(LogToolTest, APipeIsReadAsItComes) {
  std::ostringstream out;
  std::ostringstream err;
  Pieces pieces({Head + "<Session SessionOpenTimeStamp=\"s\">", "</Session></SCPICommLog>"}, out);
  std::istream in(&pieces);
  EXPECT_EQ(logtool::Run({Output::Show, {"-"}}, {in, out, err}), ExitStatus::Success);
  ASSERT_GE(pieces.OutBefore.size(), 2U);
  EXPECT_EQ(pieces.OutBefore[0], "");
  EXPECT_EQ(pieces.OutBefore[1], "# session from s, not closed\n");
}

TEST(LogToolTest, ADamagedCloseStampIsNamed) {
  const auto result = RunOn(Output::Show, Head + "<Session SessionOpenTimeStamp=\"s\" SessionC" + std::string(71, ' ') +
                                              "></Session></SCPICommLog>");
  EXPECT_EQ(result.Out, "# session from s, not closed\n");
  EXPECT_EQ(result.Err, "portico-log: standard input: a session's close stamp is damaged\n");
}

TEST(LogToolTest, GoesOnWithTheOtherFiles) {
  const std::string golden = GoldenPath("log-example.xml").string();
  const auto result = RunOn(Output::Show, "", {"missing\n.xml", testing::TempDir(), golden});
  EXPECT_EQ(result.Status, 1);
  EXPECT_NE(result.Out.find("# " + golden + "\n# session from"), std::string::npos);
  EXPECT_EQ(result.Err, "portico-log: missing?.xml: it cannot be opened\nportico-log: " + testing::TempDir() +
                            ": it is a directory\n");
}

/// Takes nothing, as a pipe that nobody reads, or as a full disk.
class Refusing final : public std::streambuf {
public:
  explicit Refusing(int fault) : m_fault(fault) {}

protected:
  int_type overflow(int_type) override {
    errno = m_fault;
    return traits_type::eof();
  }

private:
  int m_fault;
};

TEST(LogToolTest, AClosedPipeEndsItQuietly) {
  for (const auto& [fault, status, text] :
       {std::tuple(EPIPE, ExitStatus::Success, ""),
        std::tuple(ENOSPC, ExitStatus::Damaged, "portico-log: the output cannot be written\n")}) {
    Refusing buffer(fault);
    std::ostream out(&buffer);
    std::istringstream in(Conversation);
    std::ostringstream err;
    EXPECT_EQ(logtool::Run({Output::Show, {"-", "missing"}}, {in, out, err}), status);
    EXPECT_EQ(err.str(), text);
  }
}

} // namespace
} // namespace portico::logtool

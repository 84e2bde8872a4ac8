#include "end_to_end/Programs.h"
#include "support/Golden.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace portico::test {
namespace {

std::string Bytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Transcript, FirstStepsOnTheSimulatedMultimeter) {
  const Outcome outcome = RunPortico({SimulatedMeter, FirstSteps});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  ExpectGolden("portico-run-first-steps.txt", outcome.out);
}

TEST(Transcript, OfAFirstQueryIsWhatTheReadmeShows) {
  const std::string readme = Bytes(std::string(PORTICO_EXAMPLES) + "/../README.md");
  const Outcome outcome = RunPortico({SimulatedMeter}, "MEAS:VOLT:DC?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(readme.find("\nMEAS:VOLT:DC?\n" + outcome.out + "```\n"), std::string::npos) << outcome.out;
}

TEST(Transcript, StandardInputIsTheSameAsAFile) {
  const Outcome outcome = RunPortico({SimulatedMeter}, Bytes(FirstSteps));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, RunPortico({SimulatedMeter, FirstSteps}).out);
}

TEST(Transcript, CrLfFileIsTheSameAsAnLfFile) {
  const CommandFiles files;
  std::string text = Bytes(FirstSteps);
  const std::string plain = files.Add("lf.cmd", text);
  for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', end + 2)) {
    text.insert(end, "\r");
  }
  const Outcome outcome = RunPortico({SimulatedMeter, files.Add("crlf.cmd", text)});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.out, "");
  EXPECT_EQ(outcome.out, RunPortico({SimulatedMeter, plain}).out);
}

TEST(Transcript, ByteOrderMarkIsNoText) {
  const CommandFiles files;
  const Outcome outcome =
      RunPortico(BareOptions + Arguments{SimulatedMeter, files.Add("bom.cmd", "\xEF\xBB\xBF*CLS\n")});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "> *CLS\n");
}

TEST(Transcript, QuietLeavesStandardOutputEmpty) {
  const Outcome outcome = RunPortico({"--quiet", SimulatedMeter, FirstSteps});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
}

TEST(Transcript, SeveralFilesAndStandardInputRunInTheOrderGiven) {
  const CommandFiles files;
  const std::string one = files.Add("one.cmd", "REM one\n");
  const std::string two = files.Add("two.cmd", "REM two\n");
  EXPECT_EQ(RunPortico({SimulatedMeter, two, "-", one, two}, "REM in between\n").out,
            "# REM two\n# REM in between\n# REM one\n# REM two\n");
}

TEST(Transcript, MessagesNameTheFileAndTheLineNumber) {
  const CommandFiles files;
  const std::string one = files.Add("one.cmd", "*CLS\nFOO\n");
  const std::string two = files.Add("two.cmd", "\n\nBAR\n");
  const Outcome outcome = RunPortico({SimulatedMeter, one, "-", two}, "*CLS\nBAZ\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "portico-run: " + one +
                             ":2: the instrument reports -113,\"Undefined header\"\n"
                             "portico-run: standard input:2: the instrument reports -113,\"Undefined header\"\n"
                             "portico-run: " +
                             two + ":3: the instrument reports -113,\"Undefined header\"\n");
}

TEST(Transcript, PastedHistorySendsItsInstructionsOnly) {
  const Outcome outcome = RunPortico(BareOptions + Arguments{SimulatedMeter}, "\xC2\xA9*OPC?\n"
                                                                              "\xC2\xAE"
                                                                              "1\n"
                                                                              "*CLS\n"
                                                                              "  \xC2\xAE+1.0\n"
                                                                              "REM done\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "> *CLS\n# REM done\n");
}

TEST(Transcript, TypedCaseIsShownAsTyped) {
  const Outcome outcome = RunPortico({SimulatedMeter}, "*opc?\n");
  EXPECT_EQ(outcome.out, "> *OPC?\n< 1\n> *opc?\n< 1\n* :SYST:ERR?\n< 0,\"No error\"\n");
}

TEST(Transcript, TenThousandLinesAllGetTheirAnswer) {
  std::string lines;
  std::string expected;
  for (int line = 0; line < 10'000; ++line) {
    lines += "*OPC?\n";
    expected += "> *OPC?\n< 1\n";
  }
  const Outcome outcome = RunPortico(BareOptions + Arguments{SimulatedMeter}, lines);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(CountLines(outcome.out), 20'000);
  EXPECT_TRUE(outcome.out == expected);
}

} // namespace
} // namespace portico::test

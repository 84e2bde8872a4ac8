#include "end_to_end/Programs.h"

#include "support/Golden.h"
#include "support/LogTexts.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace portico::test {
namespace {

Outcome RunLog(const Arguments& arguments, std::string_view input = {}) {
  Process process(Arguments{PORTICO_LOG} + arguments);
  process.Write(input);
  return process.Wait();
}

const std::string Example = GoldenPath("log-example.xml").string();

TEST(LogProgramTest, ShowsALog) {
  const auto outcome = RunLog({"show", Example});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "# session from 2004-11-01T16:42:09.000000001-5:00 to 2004-11-01T16:42:15.000000000-5:00\n"
                         "2004-11-01T16:42:11.000000000-5:00 > *IDN?\n"
                         "2004-11-01T16:42:11.000000001-5:00 < ok\n");
  EXPECT_EQ(outcome.err, "");
}

TEST(LogProgramTest, ReadsStandardInput) {
  std::ifstream file(Example, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  EXPECT_EQ(RunLog({"export", "--format", "cmd", "-"}, bytes).out, "*IDN?\n");
}

TEST(LogProgramTest, TheCommandsItExportsRun) {
  const CommandFiles files;
  const std::string path = files.Add("again.cmd", RunLog({"export", "--format", "cmd", Example}).out);
  const auto outcome = RunPortico(BareOptions + Arguments{SimulatedMeter, path});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out.substr(0, 9), "> *IDN?\n<");
}

TEST(LogProgramTest, ALogThatIsNoneFailsAndTheOthersAreRead) {
  const CommandFiles files;
  const std::string bad = files.Add("bad.xml", "no log");
  const auto outcome = RunLog({"stats", bad, Example});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "portico-log: " + bad + ": line 1: syntax error\n");
  EXPECT_NE(outcome.out.find(Example), std::string::npos);
}

TEST(LogProgramTest, ARegressionOfAnInstrumentIsToldInOneLine) {
  const CommandFiles files;
  const auto talk = [&](const std::string& name, const std::string& commands) {
    const std::string log = files.Add(name, "");
    std::filesystem::remove(log);
    EXPECT_EQ(RunPortico(Arguments{"--log", log, SimulatedMeter, files.Add(name + ".cmd", commands)}).status, 0);
    return log;
  };
  const std::string a = talk("a.log", "*RST\nVOLT:RANG 10\nVOLT:RANG?\n");
  const std::string b = talk("b.log", "*RST\nVOLT:RANG 10\nVOLT:RANG?\n");
  const std::string c = talk("c.log", "*RST\nVOLT:RANG 1\nVOLT:RANG?\n");
  EXPECT_EQ(RunLog({"diff", a, b}).out, "");
  EXPECT_EQ(RunLog({"diff", a, b}).status, 0);
  const auto outcome = RunLog({"diff", a, c});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "< " + a + ":8: VOLT:RANG 10\n> " + c + ":8: VOLT:RANG 1\n< " + a +
                             ":13: VOLT:RANG? -> +1.00000000E+01\n> " + c + ":13: VOLT:RANG? -> +1.00000000E+00\n");
  EXPECT_EQ(RunLog({"diff", a, "missing"}).status, 2);
}

TEST(LogProgramTest, ATableOfAQueryIsPrinted) {
  const CommandFiles files;
  const std::string log = files.Add("talk.log", "");
  std::filesystem::remove(log);
  EXPECT_EQ(RunPortico(Arguments{"--log", log, SimulatedMeter, files.Add("talk.cmd", "VOLT:RANG 10;RANG?\n")}).status,
            0);
  const auto outcome = RunLog({"table", log, "volt:rang 10;rang?"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out.substr(0, 18), "Timestamp,Value1\r\n");
  EXPECT_EQ(outcome.out.substr(outcome.out.rfind(',')), ",+1.00000000E+01\r\n");
  EXPECT_EQ(RunLog({"table", Example, "*IDN?"}).err,
            "portico-log: " + Example + ": the answer of 2004-11-01T16:42:11.000000001-5:00 is no list of numbers\n");
}

TEST(LogProgramTest, WrongUsageIsTold) {
  EXPECT_EQ(RunLog({}).status, 2);
  EXPECT_EQ(RunLog({"show"}).status, 2);
  const auto outcome = RunLog({"export", "--format", "pdf", Example});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "portico-log: --format pdf: use csv, json or cmd\n");
  EXPECT_EQ(RunLog({"--version"}).out, "portico-log 1.0.5\n");
}

TEST(LogProgramTest, ThePictureThatAnInstrumentSentIsAFile) {
  const CommandFiles files;
  const std::string log = files.Folder() + "/talk.log";
  const std::string picture = files.Folder() + "/picture.bmp";
  const Arguments talk = {"--get", "HCOP:SDUM:DATA?", picture, "SIM::scope::INSTR"};
  EXPECT_EQ(RunPortico(talk).status, 0);
  EXPECT_EQ(RunPortico({"--log", log, "SIM::scope::INSTR"}, "HCOP:SDUM:DATA?\n").status, 0);
  const std::string block = files.Folder() + "/blocks/block-1.bmp";
  const auto outcome = RunLog({"blocks", log, "--to", files.Folder() + "/blocks"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, block + ": 32118 bytes, HCOP:SDUM:DATA?\n");
  EXPECT_EQ(ReadFile(block), ReadFile(picture));
  EXPECT_EQ(ReadFile(block).size(), 32118U);
}

TEST(LogProgramTest, ABlockThatDoesNotFitLeavesNoHalfFileAndIsTheLast) {
  const CommandFiles files;
  const std::string answer = "#11a,#520000" + std::string(20000, 'x') + ",#11b";
  const std::string log = files.Add(
      "a.log", LogOf(LogSessionOf(LogElementOf("Response", "01", answer) + LogElementOf("Response", "02", "#11c"))));
  const std::string folder = files.Folder() + "/blocks";
  Process process(
      {"/bin/sh", "-c", "trap '' XFSZ; ulimit -f 16; exec \"$0\" blocks \"$1\" --to \"$2\"", PORTICO_LOG, log, folder});
  const auto outcome = process.Wait();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, folder + "/block-1.bin: 1 bytes\n");
  EXPECT_EQ(outcome.err, "portico-log: " + log + ": " + folder + "/block-2.bin cannot be written: File too large\n");
  const std::filesystem::directory_iterator left(folder);
  EXPECT_EQ(std::distance(begin(left), end(left)), 1);
}

TEST(LogProgramTest, AFullDiskIsTold) {
  Process process({"/bin/sh", "-c", "exec \"$0\" show \"$1\" > /dev/full", PORTICO_LOG, Example});
  const auto outcome = process.Wait();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "portico-log: the output cannot be written\n");
}

TEST(LogProgramTest, AClosedPipeEndsItQuietly) {
  for (const char* trap : {"", "trap '' PIPE; "}) {
    Process process({"/bin/sh", "-c", std::string(trap) + "\"$0\" show \"$1\" | true", PORTICO_LOG, Example});
    const auto outcome = process.Wait();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
  }
}

} // namespace
} // namespace portico::test

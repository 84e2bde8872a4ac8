#include "end_to_end/RunLogs.h"
#include "support/doubles/ScriptedServer.h"

#include <csignal>
#include <regex>

namespace portico::test {
namespace {

/// The table with a text in the place of every time, and one blank for many.
std::string WithoutTimes(const std::string& table) {
  const std::string oneBlank = std::regex_replace(table, std::regex(" +"), " ");
  return std::regex_replace(oneBlank, std::regex(R"re(\d+\.\d)re"), "TIME");
}

TEST(Timing, TableOfEachQueryStandsOnStandardErrorAtTheEnd) {
  const Outcome outcome = RunPortico({"--timing", SimulatedMeter}, "*IDN?\n*RST\nFOO\n*IDN?\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(WithoutTimes(outcome.err),
            "portico-run: standard input:3: the instrument reports -113,\"Undefined header\"\n"
            "queries median us 99 % us maximum us query\n"
            " 4 TIME TIME TIME *OPC?\n"
            " 2 TIME TIME TIME *IDN?\n"
            " 4 TIME TIME TIME :SYST:ERR?\n");
}

TEST(Timing, ConversationAndLogAreTheSameWithIt) {
  const CommandFiles files;
  const std::string lines = files.Add("lines.cmd", "REM a remark\n*IDN?\nFOO\nREAD?;READ?\n");
  const std::string log = files.Folder() + "/log.xml";
  const Arguments common = {"--log", log, "--overwrite", SimulatedMeter, lines};
  const Outcome without = RunPortico(common);
  const std::string logWithout = WithoutStamps(BytesOf(log));
  const Outcome with = RunPortico(Arguments{"--timing"} + common);
  EXPECT_EQ(with.out, without.out);
  EXPECT_EQ(with.status, without.status);
  EXPECT_EQ(WithoutStamps(BytesOf(log)), logWithout);
}

TEST(Timing, WithoutAnAnswerThereIsATextInItsPlace) {
  EXPECT_EQ(RunPortico(BareOptions + Arguments{"--timing", SimulatedMeter}, "*RST\n").err,
            "portico-run: no query was answered, so there are no times\n");
}

TEST(Timing, InterruptedRunPrintsItToo) {
  ScriptedServer server({});
  Process process(PorticoRun(BareOptions + Arguments{"--timing", "--timeout", "60000", server.ResourceName()}));
  process.Write("SLOW?\n*RST\n");
  server.WaitForReceived("SLOW?\r\n");
  process.Signal(SIGINT);
  server.Send("answer\n");
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(WithoutTimes(outcome.err), "portico-run: standard input:1: interrupted\n"
                                       "queries median us 99 % us maximum us query\n"
                                       " 1 TIME TIME TIME SLOW?\n");
}

} // namespace
} // namespace portico::test

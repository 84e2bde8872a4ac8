#include "end_to_end/Programs.h"

#include "support/LogTexts.h"

#include <csignal>

namespace portico::test {
namespace {

Outcome RunLog(const Arguments& arguments) { return Process(Arguments{PORTICO_LOG} + arguments).Wait(); }

/// A device, and commands that bring texts, numbers, blocks, errors, and answers that change as they are repeated.
struct Conversation {
  std::string Device;
  std::string Commands;
};

const std::vector<Conversation> Conversations = {
    {"dmm", "*RST\n*CLS\n*IDN?\nCONF:VOLT:DC 10\nREAD?\nREAD?\nMEAS:VOLT:DC?;:MEAS:RES?\nBOGUS 1\nVOLT:RANG 1E9\n"
            "TRAC:POIN 3000\nTRAC:DATA?\nSYST:HELP:HEAD?\n*STB?\n"},
    {"psu", "*RST\n*IDN?\nAPPL 5,1\nOUTP ON\nMEAS:VOLT?\nMEAS:CURR?\nmeas:curr?\nAPPL?\nVOLT 1E6\nVOLT?\n*ESR?\n"},
    {"scope", "*RST\n*IDN?\nSING\n*OPC?\nWAV:FORM BYTE\nWAV:PRE?\nWAV:DATA?\nHCOP:SDUM:DATA?\nWAV:FORM NONE\n*TST?\n"},
};

class Replay : public testing::TestWithParam<Conversation> {
protected:
  Replay() : m_commands(m_files.Add("talk.cmd", GetParam().Commands)) {
    m_recorded = Talk("recorded.log", "SIM::" + GetParam().Device + "::INSTR");
  }

  std::string Log(const std::string& name) const { return m_files.Folder() + "/" + name; }

  /// What the conversation shows; it is logged.
  std::string Talk(const std::string& log, const std::string& instrument) {
    const Outcome outcome = RunPortico({"--log", Log(log), instrument, m_commands});
    EXPECT_EQ(outcome.status, 1) << outcome.err; // the device has told of an error
    EXPECT_NE(outcome.out.find("\n< -"), std::string::npos) << outcome.out;
    return outcome.out;
  }

  /// What was recorded can be had from that instrument, too.
  void ExpectTheSame(const std::string& instrument) {
    EXPECT_EQ(Talk("replayed.log", instrument), m_recorded);
    const Outcome diff = RunLog({"diff", Log("recorded.log"), Log("replayed.log")});
    EXPECT_EQ(diff.out, "");
    EXPECT_EQ(diff.status, 0) << diff.err;
  }

  const CommandFiles m_files;
  const std::string m_commands;
  std::string m_recorded;
};

TEST_P(Replay, OverARawSocketIsTheConversationThatWasRecorded) {
  const SimulatorProgram simulator({"--replay", Log("recorded.log")});
  ExpectTheSame(simulator.ResourceName());
}

TEST_P(Replay, OverVxi11IsTheConversationThatWasRecorded) {
  SimulatorProgram simulator({"--replay", Log("recorded.log"), "--vxi11", "0"});
  const std::string line = simulator.NextAddress();
  ASSERT_TRUE(line.ends_with(" vxi11")) << line;
  ExpectTheSame("TCPIP::127.0.0.1," + line.substr(10, line.find(' ') - 10) + "::INSTR");
}

TEST_P(Replay, OverHislipIsTheConversationThatWasRecorded) {
  SimulatorProgram simulator({"--replay", Log("recorded.log"), "--hislip", "0"});
  const std::string line = simulator.NextAddress();
  ASSERT_TRUE(line.ends_with(" hislip")) << line;
  ExpectTheSame("TCPIP::127.0.0.1::hislip0," + line.substr(10, line.find(' ') - 10) + "::INSTR");
}

TEST_P(Replay, OnASerialLineIsTheConversationThatWasRecorded) {
  SimulatorProgram simulator({"--replay", Log("recorded.log"), "--serial"});
  const std::string line = simulator.NextAddress();
  ASSERT_TRUE(line.ends_with(" serial")) << line;
  ExpectTheSame("ASRL" + line.substr(0, line.find(' ')) + "::INSTR");
}

TEST_P(Replay, InProcessIsTheConversationThatWasRecorded) {
  ExpectTheSame("SIM::replay:" + Log("recorded.log") + "::INSTR");
}

TEST_P(Replay, InItsOrderIsNoErrorWhereThatIsDemanded) {
  const SimulatorProgram simulator({"--replay", Log("recorded.log"), "--strict"});
  ExpectTheSame(simulator.ResourceName());
}

INSTANTIATE_TEST_SUITE_P(Devices, Replay, testing::ValuesIn(Conversations),
                         [](const auto& row) { return row.param.Device; });

/// A log of one session for each row: instructions and the answers to them.
std::string LogOfSessions(const std::vector<std::vector<std::pair<std::string, std::string>>>& sessions) {
  std::string text;
  for (const auto& session : sessions) {
    std::string entities;
    for (const auto& [instruction, answer] : session) {
      entities += LogElementOf("Instruction", "01", instruction);
      if (!answer.empty()) entities += LogElementOf("Response", "01", answer);
    }
    text += LogSessionOf(entities);
  }
  return LogOf(text);
}

TEST(ReplayProgram, TakesOneSessionOfALog) {
  const CommandFiles files;
  const std::string log = files.Add("a.log", LogOfSessions({{{"A?", "1"}}, {{"A?", "2"}, {"A?", "3"}}}));
  const SimulatorProgram simulator({"--replay", log, "--session", "2"});
  EXPECT_EQ(RunPortico(BareOptions + Arguments{simulator.ResourceName()}, "A?\n").out, "> A?\n< 2\n");
  EXPECT_EQ(RunPortico(BareOptions + Arguments{simulator.ResourceName()}, "A?\nA?\n").out, "> A?\n< 3\n> A?\n< 3\n")
      << "its clients come into one conversation";
}

TEST(ReplayProgram, TellsWhereTheOrderIsLeft) {
  const CommandFiles files;
  const std::string log = files.Add("a.log", LogOfSessions({{{"A?", "1"}, {"B?", "2"}, {"SYST:ERR?", "0,\"x\""}}}));
  const SimulatorProgram simulator({"--replay", log, "--strict"});
  const Outcome outcome = RunPortico(BareOptions + Arguments{simulator.ResourceName()}, "B?\nSYST:ERR?\nsyst:err?\n");
  EXPECT_EQ(outcome.out, "> B?\n< 2\n> SYST:ERR?\n< -200,\"Execution error\"\n> syst:err?\n< 0,\"x\"\n");
}

TEST(ReplayProgram, IsSilentWhereTheLogHoldsATimeOut) {
  const CommandFiles files;
  const std::string log =
      files.Add("a.log", LogOfSessions({{{"A?", "Timeout expired before the answer was complete."}, {"B?", "2"}}}));
  const Outcome outcome = RunPortico(BareOptions + Arguments{"--timeout", "50", "SIM::replay:" + log + "::INSTR"},
                                     "A?\nB?\nC?\nSYST:ERR?\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(CountLines(WithoutLines(outcome.out, "< Timeout expired before the answer was complete: ")), 6)
      << outcome.out;
  EXPECT_NE(outcome.out.find("> B?\n< 2\n"), std::string::npos) << outcome.out;
  EXPECT_TRUE(outcome.out.ends_with("> SYST:ERR?\n< -113,\"Undefined header\"\n"))
      << "it is the same instrument after a time-out: " << outcome.out;
}

TEST(ReplayProgram, EachOpeningInAProgramBeginsAtTheBeginning) {
  const CommandFiles files;
  const std::string name = "sim::Replay:" + files.Add("a.log", LogOfSessions({{{"A?", "1"}, {"A?", "2"}}})) + "::instr";
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(RunPortico(BareOptions + Arguments{name}, "A?\nA?\n").out, "> A?\n< 1\n> A?\n< 2\n");
  }
}

TEST(ReplayProgram, RefusesALogThatCannotBeRead) {
  const CommandFiles files;
  const auto refusalOf = [](const std::string& log, const Arguments& more = {}) {
    const Outcome outcome = Process(Arguments{PORTICO_SIM, "--port", "0", "--replay", log} + more).Wait();
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    return outcome.err;
  };
  const std::string hint = "; see what portico-log show says of it\n";
  const std::string bad = files.Add("bad.log", "no log");
  EXPECT_EQ(refusalOf(bad), "portico-sim: '" + bad + "' cannot be replayed: line 1: syntax error" + hint);
  EXPECT_EQ(refusalOf("/none"), "portico-sim: '/none' cannot be replayed: it cannot be opened" + hint);
  EXPECT_EQ(refusalOf(""), "portico-sim: '' cannot be replayed: it cannot be opened" + hint);
  const std::string good = files.Add("good.log", LogOfSessions({{{"A?", "1"}}}));
  EXPECT_EQ(refusalOf(good, {"--session", "2"}),
            "portico-sim: '" + good + "' cannot be replayed: it has no session 2" + hint);
  for (const Arguments& more : {Arguments{"--session", "0"}, Arguments{"--device", "psu"}}) {
    EXPECT_NE(refusalOf(good, more).find("; try portico-sim --help\n"), std::string::npos);
  }
  for (const Arguments& alone : {Arguments{"--session", "1"}, Arguments{"--strict"}}) {
    EXPECT_EQ(Process(Arguments{PORTICO_SIM, "--port", "0"} + alone).Wait().status, 2);
  }
}

TEST(ReplayProgram, OfALogWhoseEndIsMissingTheRestIsReplayed) {
  const CommandFiles files;
  const std::string whole = LogOfSessions({{{"A?", "1"}}});
  const std::string log = files.Add("torn.log", whole.substr(0, whole.find("</Session>")));
  SimulatorProgram simulator({"--replay", log});
  EXPECT_EQ(RunPortico(BareOptions + Arguments{simulator.ResourceName()}, "A?\n").out, "> A?\n< 1\n");
  const Outcome outcome = simulator.Program().SignalUntilEnd(SIGTERM);
  EXPECT_EQ(outcome.err,
            "portico-sim: '" + log + "': its end is missing (line 1: no element found); the rest is replayed\n");
}

TEST(ReplayProgram, ALogThatIsNotThereDoesNotOpen) {
  const Outcome outcome = RunPortico({"SIM::replay:/nowhere/a.log::INSTR"}, "*IDN?\n");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_NE(outcome.err.find("The connection could not be made: /nowhere/a.log: it cannot be opened."),
            std::string::npos)
      << outcome.err;
}

} // namespace
} // namespace portico::test

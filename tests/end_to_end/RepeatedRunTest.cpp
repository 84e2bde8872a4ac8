#include "end_to_end/RunLogs.h"

namespace portico::test {
namespace {

/// Lines of all kinds, none of which an automatic text begins.
const std::string RunLines = "REM a conversation\n"
                             "*RST\n"
                             "  *CLS  \n"
                             "*idn?\n"
                             "\n"
                             "CONF:VOLT:DC 10\n"
                             "READ?\n"
                             "MEAS:VOLT:DC?;:MEAS:RES?\n"
                             "DISP:TEXT \"WHY?\"\n"
                             "DISP:TEXT?\n"
                             "DISP:TEXT 'caf\xC3\xA9 {1} C:\\temp'\n"
                             "FOO\n"
                             "\xC2\xA9*OPC?\n"
                             "\xC2\xAE+1.0\n"
                             "OPEN the door\n"
                             "rem no remark\n"
                             "REM\tno remark\n"
                             "VOLT 1 REM no remark\n"
                             "*ESR?\n"
                             "READ?\n";

struct Setting {
  std::string Name;
  Arguments Options;
};

class RepeatedRun : public testing::TestWithParam<Setting> {
protected:
  /// The run's log, at that path.
  static std::string LogOf(const std::string& path, const std::string& instrument, const std::string& commands) {
    const Outcome outcome =
        RunPortico(GetParam().Options + Arguments{"--log", path, "--timeout", "500", instrument, commands});
    EXPECT_TRUE(outcome.status == 0 || outcome.status == 1) << outcome.err;
    return BytesOf(path);
  }
  /// The commands that the user typed, from a log to a file.
  std::string Export(const std::string& log) const {
    const Outcome outcome = Process({PORTICO_LOG, "export", "--format", "cmd", log}).Wait();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    return Files.Add("again.cmd", outcome.out);
  }
  /// Runs the lines on `instrument`, and what the log exports on `fresh`, which is in the same state as that was.
  void ExpectTheSameAgain(const std::string& instrument, const std::string& fresh) const {
    const std::string log = Files.Folder() + "/log.xml";
    const std::string once = LogOf(log, instrument, Files.Add("lines.cmd", RunLines));
    EXPECT_EQ(CountOf(once, "<Instruction "), 16);
    const std::string again = LogOf(Files.Folder() + "/again.xml", fresh, Export(log));
    EXPECT_EQ(WithoutStamps(again), WithoutStamps(once));
  }

  const CommandFiles Files;
};

TEST_P(RepeatedRun, OfAnExportedLogGivesTheSameConversation) { ExpectTheSameAgain(SimulatedMeter, SimulatedMeter); }

TEST_P(RepeatedRun, IsTheSameOnAnotherServerWithTheSameSeed) {
  const Arguments seed = {"--seed", "77"};
  const SimulatorProgram simulator(seed);
  const SimulatorProgram fresh(seed);
  ExpectTheSameAgain(simulator.ResourceName(), fresh.ResourceName());
}

INSTANTIATE_TEST_SUITE_P(, RepeatedRun,
                         testing::Values(Setting{"Defaults", {}}, Setting{"Bare", BareOptions},
                                         Setting{"NoAutoRead", {"--option", "SCPIProtocolAutoReadAfterQuery=Off"}},
                                         Setting{"OwnErrorQuery",
                                                 {"--option",
                                                  "SCPIProtocolErrorCheckingCommand=SYST:ERR:COUN?;:SYST:ERR?"}},
                                         Setting{"OtherProtocol", {"--protocol", "Other"}}),
                         [](const auto& setting) { return setting.param.Name; });

} // namespace
} // namespace portico::test

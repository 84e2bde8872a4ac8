#include "end_to_end/Programs.h"
#include "support/EnvironmentVariable.h"

#include <filesystem>

namespace portico::test {
namespace {

TEST(List, BeginsWithWhatTheWindowHasOpenedTheLastOneFirst) {
  const TemporaryFolder home;
  std::filesystem::create_directories(home.Path() / "Tolvane Portico");
  home.Write("Tolvane Portico/Tolvane Portico.conf", "[OpenedInstruments]\n"
                                                     "Name1=\"TCPIP::192.0.2.7::hislip0,4881::INSTR\"\n"
                                                     "Name2=sim::psu::instr\n"
                                                     "Name3=\n"
                                                     "\n"
                                                     "[frmMain]\n"
                                                     "MainLeft=5\n");
  const EnvironmentVariable place("XDG_CONFIG_HOME", home.Path().c_str());
  const Outcome outcome = RunPortico({"--list", "--list-time", "1"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(outcome.out.starts_with("TCPIP::192.0.2.7::hislip0,4881::INSTR\n"
                                      "sim::psu::instr\n"
                                      "SIM::dmm::INSTR\n"
                                      "SIM::scope::INSTR\n"))
      << outcome.out;
}

} // namespace
} // namespace portico::test

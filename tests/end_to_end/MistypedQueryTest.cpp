#include "end_to_end/Programs.h"

namespace portico::test {
namespace {

const Arguments Brief = {"--timeout", "500"};

/// What is shown when the first line that a user ever sends is a query that the instrument does not know.
std::string FirstQuery(const std::string& particulars) {
  return "* *OPC?\n< 1\n> FOO:BAR?\n< Timeout expired before the answer was complete: " + particulars +
         ".\n* :SYST:ERR?\n< -113,\"Undefined header\"\n";
}

/// A supply that is set, asked for nonsense, and asked for its settings, which survive the lost connection.
const std::string Supply = "VOLT 5\nOUTP ON\nFOO:BAR?\nVOLT?\nOUTP?\nSYST:ERR?\n";

std::string SupplyTranscript(const std::string& particulars) {
  return "> VOLT 5\n> OUTP ON\n> FOO:BAR?\n< Timeout expired before the answer was complete: " + particulars +
         ".\n> VOLT?\n< +5.00000000E+00\n> OUTP?\n< 1\n> SYST:ERR?\n< -113,\"Undefined header\"\n";
}

/// How the driver names the other end of a connection.
std::string Particulars(const SimulatorProgram& simulator) {
  std::string address = simulator.Address();
  return address.replace(address.rfind(':'), 1, ", port ");
}

TEST(MistypedQuery, IsToldByTheBuiltInInstrument) {
  const Outcome outcome = RunPortico(Brief + Arguments{SimulatedMeter}, "FOO:BAR?\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, FirstQuery("dmm"));
}

TEST(MistypedQuery, IsToldOverTcp) {
  const SimulatorProgram simulator;
  const Outcome outcome = RunPortico(Brief + Arguments{simulator.ResourceName()}, "FOO:BAR?\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, FirstQuery(Particulars(simulator)));
}

TEST(MistypedQuery, LeavesTheBuiltInSupplyAsItIs) {
  EXPECT_EQ(RunPortico(Brief + BareOptions + Arguments{"SIM::psu::INSTR"}, Supply).out, SupplyTranscript("psu"));
}

TEST(MistypedQuery, LeavesTheSupplyAsItIsOverTcp) {
  const SimulatorProgram simulator({"--device", "psu"});
  EXPECT_EQ(RunPortico(Brief + BareOptions + Arguments{simulator.ResourceName()}, Supply).out,
            SupplyTranscript(Particulars(simulator)));
}

} // namespace
} // namespace portico::test

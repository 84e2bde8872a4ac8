#include "contract/DriverBenches.h"
#include "contract/NetworkBench.h"
#include "support/doubles/Vxi11Instrument.h"

namespace portico::test {
namespace {

class Vxi11Bench final : public NetworkBench<Vxi11Instrument> {
public:
  using NetworkBench::NetworkBench;

  std::string CanonicalName() const override { return "TCPIP0::127.0.0.1," + Port() + "::inst0::INSTR"; }
};

} // namespace

DriverBenchKind Vxi11BenchKind() {
  return {"Vxi11",
          MakeBench<Vxi11Bench>,
          {.marksEnd = true,
           .recovery = TransportTraits::RecoveryKind::DeviceClear,
           .cancels = true,
           .returnsToLocal = true}};
}

} // namespace portico::test

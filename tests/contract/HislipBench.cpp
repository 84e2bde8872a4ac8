#include "contract/DriverBenches.h"
#include "contract/NetworkBench.h"
#include "support/doubles/HislipInstrument.h"

namespace portico::test {
namespace {

class HislipBench final : public NetworkBench<HislipInstrument> {
public:
  using NetworkBench::NetworkBench;

  std::string CanonicalName() const override { return "TCPIP0::127.0.0.1::hislip0," + Port() + "::INSTR"; }
};

} // namespace

DriverBenchKind HislipBenchKind() {
  return {"Hislip",
          MakeBench<HislipBench>,
          {.marksEnd = true,
           .recovery = TransportTraits::RecoveryKind::DeviceClear,
           .cancels = true,
           .returnsToLocal = true}};
}

} // namespace portico::test

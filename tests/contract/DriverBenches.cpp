#include "contract/DriverBenches.h"

namespace portico::test {

std::vector<DriverBenchKind> AllDriverBenches() {
  return {
      SocketBenchKind(),
      SerialBenchKind(),
      SimulatedBenchKind(),
      HislipBenchKind(),
  };
}

} // namespace portico::test

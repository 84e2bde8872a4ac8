#include "contract/DriverBenches.h"

namespace portico::test {

std::vector<DriverBenchKind> AllDriverBenches() {
  return {
      SocketBenchKind(),  SerialBenchKind(), SimulatedBenchKind(), HislipBenchKind(),
      MarkingBenchKind(), Vxi11BenchKind(),  LoadedBenchKind(),    UsbtmcBenchKind(),
  };
}

} // namespace portico::test

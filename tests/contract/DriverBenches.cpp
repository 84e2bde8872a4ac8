#include "contract/DriverBenches.h"

namespace portico::test {

std::vector<DriverBenchKind> AllDriverBenches() {
  return {
      SocketBenchKind(), SerialBenchKind(), SimulatedBenchKind(), HislipBenchKind(), MarkingBenchKind(),
  };
}

} // namespace portico::test

#pragma once

#include "contract/DriverBench.h"

namespace portico::test {

// Each in the file of its name, without "Kind".
DriverBenchKind MarkingBenchKind();
DriverBenchKind SocketBenchKind();
DriverBenchKind SerialBenchKind();
DriverBenchKind SimulatedBenchKind();
DriverBenchKind HislipBenchKind();
DriverBenchKind Vxi11BenchKind();
DriverBenchKind LoadedBenchKind();
DriverBenchKind UsbtmcBenchKind();

} // namespace portico::test

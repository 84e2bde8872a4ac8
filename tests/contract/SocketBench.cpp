#include "contract/DriverBenches.h"
#include "contract/NetworkBench.h"
#include "support/doubles/ScriptedServer.h"

namespace portico::test {
namespace {

class SocketBench final : public NetworkBench<ScriptedServer> {
public:
  using NetworkBench::NetworkBench;

  std::string CanonicalName() const override { return "TCPIP0::127.0.0.1::" + Port() + "::SOCKET"; }
};

} // namespace

DriverBenchKind SocketBenchKind() { return {"Socket", MakeBench<SocketBench>, {.cancels = true}}; }

} // namespace portico::test

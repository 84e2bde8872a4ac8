#include "drivers/sockets/TcpTransport.h"
#include "end_to_end/Programs.h"
#include "support/doubles/ScriptedServer.h"

#include <chrono>
#include <csignal>
#include <fstream>
#include <memory>
#include <sys/stat.h>

namespace portico::test {
namespace {

TEST(Interrupt, AgainEndsAnOpenThatIsUnderWay) {
  const ScriptedServer server({}, {.deaf = true});
  // The first ones are queued by the system; once its queue is full, connections are left hanging.
  std::vector<std::unique_ptr<drivers::TcpTransport>> queued;
  do {
    queued.push_back(std::make_unique<drivers::TcpTransport>("127.0.0.1", server.Port()));
  } while (queued.back()->Open(std::chrono::steady_clock::now() + std::chrono::milliseconds(50)).Succeeded());
  const CommandFiles files;
  const std::string commands = files.Add("commands.cmd", "");
  std::remove(commands.c_str());
  ASSERT_EQ(::mkfifo(commands.c_str(), 0600), 0);
  Process process(PorticoRun({"--timeout", "600000", server.ResourceName(), commands}));
  std::ofstream(commands) << "*RST\n"; // is read once the program heeds signals, and before it opens
  const Outcome outcome = process.SignalUntilEnd(SIGINT);
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "portico-run: interrupted\n");
}

} // namespace
} // namespace portico::test

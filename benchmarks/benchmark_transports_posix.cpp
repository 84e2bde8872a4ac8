// The driver's write and read of a query, over each transport, against a bare loop that puts the same bytes on the same
// wire, and beside what else talks to instruments. Everything, the simulated instrument too, runs on one core; all take
// turns, and medians are compared.
//   benchmark_transports [QUERIES [ROUNDS]]

#include "benchmarks/BareWire.h"
#include "benchmarks/Part.h"
#include "drivers/SteadyClock.h"
#include "drivers/standard/StandardDriver.h"
#include "simulator/connection/ServedLine.h"
#include "simulator/connection/ServedStream.h"
#include "simulator/server/PseudoTerminal.h"
#include "simulator/server/SocketServer.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include <sched.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace portico;
using namespace portico::simulator;

const std::string Query = "*IDN?";
const std::string Answer = "TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0";

using Samples = std::vector<double>; // microseconds

double Median(Samples samples) {
  const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
  std::nth_element(samples.begin(), middle, samples.end());
  return *middle;
}

/// Who takes part: makes what asks one query; that goes when its turn is over.
struct Contestant {
  std::string Name;
  std::function<std::function<void()>()> Connect;
  std::size_t Bare; ///< the contestant that it is compared with
  Samples Medians = {};
};

void Expect(std::string_view answer) {
  if (answer != Answer) throw std::runtime_error("a wrong answer: " + std::string(answer));
}

std::function<void()> BareLines(std::shared_ptr<BareWire> wire) {
  return [wire = std::move(wire)] {
    wire->Send(Query + "\r\n");
    Expect(wire->ReceiveLine().substr(0, Answer.size()));
  };
}

/// An instrument that is open for as long as somebody asks.
class OpenInstrument {
public:
  explicit OpenInstrument(const std::string& name) {
    if (m_driver->TVSCPI_init(name, 0, 0, m_session) != 0) throw std::runtime_error(name + " does not open");
  }

  void Ask() {
    std::int32_t count = 0;
    if (m_driver->TVSCPI_WriteInstrData(m_session, m_query) != 0 ||
        m_driver->TVSCPI_ReadInstrData(m_session, static_cast<std::int32_t>(m_buffer.size()), m_buffer.data(), count) !=
            0) {
      throw std::runtime_error("a query failed");
    }
    Expect({m_buffer.data(), static_cast<std::size_t>(count) - 1});
  }

private:
  drivers::SteadyClock m_clock;
  const std::shared_ptr<IInstrumentDriver> m_driver = drivers::StandardDriver({m_clock, std::chrono::seconds(5)});
  std::int32_t m_session = 0;
  const std::string m_query = Query + '\r';
  std::vector<char> m_buffer = std::vector<char>(0x100000);
};

std::function<void()> Through(const std::string& name) {
  return [instrument = std::make_shared<OpenInstrument>(name)] { instrument->Ask(); };
}

void TakeTurns(std::vector<Contestant>& all, int queries, int rounds) {
  for (int round = 0; round < rounds; ++round) {
    for (Contestant& contestant : all) {
      const auto ask = contestant.Connect();
      Samples samples;
      for (int i = 0; i < queries; ++i) {
        const auto start = std::chrono::steady_clock::now();
        ask();
        const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
        samples.push_back(taken.count());
      }
      contestant.Medians.push_back(Median(std::move(samples)));
    }
  }
}

void Print(const std::string& name, double median, double bare) {
  std::printf("%-36s %7.2f us/query   ratio %5.2f\n", name.c_str(), median, median / bare);
}

/// What a program prints, as a number; none if it fails.
std::optional<double> Printed(const std::string& command) {
  FILE* const output = popen((command + " 2>/dev/null").c_str(), "r");
  if (output == nullptr) return {};
  double number = 0;
  const bool found = std::fscanf(output, "%lf", &number) == 1;
  return pclose(output) == 0 && found ? std::optional(number) : std::nullopt;
}

/// The median of what the other programs say of themselves.
void AddOther(const std::string& name, const std::string& command, double bare, int rounds,
              const std::function<double(double)>& microseconds) {
  Samples medians;
  for (int round = 0; round < rounds; ++round) {
    const auto printed = Printed(command);
    if (!printed) {
      std::printf("%-36s not installed\n", name.c_str());
      return;
    }
    medians.push_back(microseconds(*printed));
  }
  Print(name, Median(medians), bare);
}

int Argument(int argc, char** argv, int index, int otherwise) {
  return index < argc ? std::max(1, std::atoi(argv[index])) : otherwise;
}

/// One device over all wires, and the contestants on each.
class Contest {
public:
  Contest() { m_server.Add(m_line.TakeFarEnd(), std::make_unique<ServedLine>(ServedStream::Factory(*m_device))); }

  std::vector<Contestant> Contestants() const {
    std::vector<Contestant> all;
    const auto add = [&all](const std::string& wire, const std::function<std::function<void()>()>& bare,
                            const std::string& name) {
      all.push_back({wire + ": bare loop", bare, all.size()});
      all.push_back({wire + ": the driver", [name] { return Through(name); }, all.size() - 1});
    };
    const std::uint16_t raw = m_server.Port();
    add(
        "raw socket", [raw] { return BareLines(std::make_shared<BareWire>(raw)); }, RawName());
    const std::string line = m_line.Name();
    add(
        "serial line", [line] { return BareLines(std::make_shared<BareWire>(line.c_str())); },
        "ASRL" + line + "::INSTR");
    return all;
  }

  std::string RawName() const { return "TCPIP::127.0.0.1::" + std::to_string(m_server.Port()) + "::SOCKET"; }
  std::uint16_t RawPort() const { return m_server.Port(); }
  void Serve() { m_server.Run(); }

private:
  const std::unique_ptr<Device> m_device = Device::Make("dmm", 1);
  PseudoTerminal m_line;
  SocketServer m_server{{{"127.0.0.1", 0, ServedStream::Factory(*m_device)}}};
};

} // namespace

int main(int argc, char** argv) try {
  const int queries = Argument(argc, argv, 1, Part(20'000));
  const int rounds = Argument(argc, argv, 2, Part(9));
  cpu_set_t one;
  CPU_ZERO(&one);
  CPU_SET(0, &one);
  if (sched_setaffinity(0, sizeof one, &one) != 0) { // children inherit it
    throw std::system_error(errno, std::generic_category(), "sched_setaffinity");
  }
  Contest contest;
  const pid_t server = fork();
  if (server == 0) {
    contest.Serve();
    _exit(0);
  }

  std::vector<Contestant> all = contest.Contestants();
  TakeTurns(all, queries, rounds);
  for (const Contestant& contestant : all)
    Print(contestant.Name, Median(contestant.Medians), Median(all[contestant.Bare].Medians));
  const double bare = Median(all.front().Medians);
  const std::string count = std::to_string(queries);
  AddOther("raw socket: lxi-tools",
           "lxi benchmark --raw --address 127.0.0.1 --port " + std::to_string(contest.RawPort()) + " --count " + count +
               " | sed -n 's/.*Result: \\([0-9.]*\\) .*/\\1/p'",
           bare, rounds, [](double rate) { return 1e6 / rate; });
  AddOther("raw socket: pyvisa-py",
           "/usr/bin/python3 " VISA_QUERIES " " + contest.RawName() + " '" + Query + "' " + count, bare, rounds,
           [](double median) { return median; });
  kill(server, SIGTERM);
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << '\n';
  return 1;
}

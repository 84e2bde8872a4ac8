// Whole processes, start-up included: portico-run against a bare socket loop that puts the same bytes on the wire, and
// beside what else talks to instruments. Everything, the answering server too, runs on one core; all take turns, and
// medians are compared.
//   benchmark_whole_process [QUERIES [ROUNDS]]

#include "benchmarks/BareWire.h"
#include "benchmarks/Part.h"
#include "benchmarks/Samples.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sched.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using portico::Median;

constexpr std::string_view Query = "MEAS:VOLT:DC?";

[[noreturn]] void Fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

/// One exchange as it stands on the wire.
struct Exchange {
  std::string Sent;
  std::string Answer;
};

const std::array<Exchange, 4> Exchanges = {{
    {"*OPC?\r\n", "1\n"},
    {std::string(Query) + "\r\n", "+1.00023837E+00\n"},
    {":SYST:ERR?\r\n", "0,\"No error\"\n"},
    {"*IDN?\n", "+1.00023837E+00\n"}, // what `lxi benchmark` asks
}};

using Words = std::vector<std::string>;

/// Who takes part: a name, and the work, which is done in a child process.
struct Contestant {
  std::string Name;
  std::function<void()> Work;
  std::size_t Bare = 0; // the contestant whose time it is compared with
  std::vector<double> Seconds = {};
};

int Listen(std::uint16_t& port) {
  const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  if (listener < 0 || bind(listener, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(listener, 8) != 0 ||
      getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
    Fail("listen");
  }
  port = ntohs(address.sin_port);
  return listener;
}

void SendAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto sent = send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent <= 0) Fail("send");
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
}

void NoDelay(int descriptor) {
  const int on = 1;
  setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

/// Answers each line that it knows, client after client, until it is killed.
[[noreturn]] void Serve(int listener) {
  for (;;) {
    const int client = accept(listener, nullptr, nullptr);
    if (client < 0) continue;
    NoDelay(client);
    std::string input;
    std::array<char, 65536> chunk{};
    for (ssize_t count = 0; (count = recv(client, chunk.data(), chunk.size(), 0)) > 0;) {
      input.append(chunk.data(), static_cast<std::size_t>(count));
      for (auto end = input.find('\n'); end != std::string::npos; end = input.find('\n')) {
        for (const Exchange& known : Exchanges) {
          if (input.compare(0, end + 1, known.Sent) == 0) SendAll(client, known.Answer);
        }
        input.erase(0, end + 1);
      }
    }
    close(client);
  }
}

void BareLoop(std::uint16_t port, const std::vector<Exchange>& exchanges, int queries) {
  portico::BareWire wire(port);
  for (int i = 0; i < queries; ++i) {
    for (const Exchange& exchange : exchanges) {
      wire.Send(exchange.Sent);
      wire.ReceiveLine();
    }
  }
}

/// Seconds that a child takes which does `work`; none if it fails.
std::optional<double> Time(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = 0;
  if (waitpid(child, &status, 0) != child || status != 0) return {};
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

[[noreturn]] void Exec(Words words) {
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  const int null = open("/dev/null", O_WRONLY | O_CLOEXEC);
  dup2(null, STDOUT_FILENO);
  execvp(argv.front(), argv.data());
  _exit(127);
}

/// The cases, each with a bare loop of the same exchanges, and the other programs.
std::vector<Contestant> Contestants(std::uint16_t port, const std::string& commands, const std::string& log,
                                    int queries) {
  const std::string host = "127.0.0.1";
  const std::string instrument = "TCPIP::" + host + "::" + std::to_string(port) + "::SOCKET";
  const Words off = {"--option", "SCPIProtocolOPCPacing=Off", "--option", "SCPIProtocolAutoErrorChecking=Off"};
  const Words logging = {"--log", log, "--overwrite"};
  const std::vector<Exchange> alone = {Exchanges[1]};
  const std::vector<Exchange> cared = {Exchanges[0], Exchanges[1], Exchanges[2]};
  std::vector<Contestant> all;
  const auto bare = [&](const char* name, const std::vector<Exchange>& exchanges) {
    all.push_back({name, [=] { BareLoop(port, exchanges, queries); }, all.size()});
    return all.size() - 1;
  };
  const auto portico = [&](const char* name, std::size_t loop, std::initializer_list<Words> options) {
    Words words = {PORTICO_RUN};
    for (const Words& some : options) words.insert(words.end(), some.begin(), some.end());
    words.insert(words.end(), {instrument, commands});
    all.push_back({name, [=] { Exec(words); }, loop});
  };
  const auto other = [&](const char* name, const Words& trial, const Words& words, std::size_t loop) {
    if (Time([&] { Exec(trial); })) {
      all.push_back({name, [=] { Exec(words); }, loop});
    } else {
      std::printf("%-44s not installed\n", name);
    }
  };

  const std::string count = std::to_string(queries);
  const std::size_t one = bare("bare loop, one exchange", alone);
  portico("(a) OPC pacing and error check off", one, {off});
  portico("(c) as (a), with the log", one, {off, logging});
  other("lxi-tools: lxi benchmark", {"lxi", "--version"},
        {"lxi", "benchmark", "--raw", "--address", host, "--port", std::to_string(port), "--count", count}, one);
  const std::string python = "/usr/bin/python3"; // the one that Debian's packages are for
  other("pyvisa-py: visa_queries.py", {python, "-c", "import pyvisa_py"},
        {python, VISA_QUERIES, instrument, std::string(Query), count}, one);
  const std::size_t three = bare("bare loop, three exchanges", cared);
  portico("(b) OPC pacing and error check on", three, {});
  portico("(d) as (b), with the log", three, {logging});
  return all;
}

/// The medians of all rounds, which everybody takes part in.
void Compare(std::vector<Contestant> all, int queries, int rounds) {
  for (int round = 0; round < rounds; ++round) {
    for (Contestant& contestant : all) {
      const auto seconds = Time(contestant.Work);
      if (!seconds) throw std::runtime_error(contestant.Name + " failed");
      contestant.Seconds.push_back(*seconds);
    }
  }
  for (const Contestant& contestant : all) {
    const double seconds = Median(contestant.Seconds);
    std::printf("%-44s %7.2f us/query   ratio %5.2f\n", contestant.Name.c_str(), seconds / queries * 1e6,
                seconds / Median(all[contestant.Bare].Seconds));
  }
}

int Argument(int argc, char** argv, int index, int otherwise) {
  return index < argc ? std::max(1, std::atoi(argv[index])) : otherwise;
}

} // namespace

int main(int argc, char** argv) try {
  const int queries = Argument(argc, argv, 1, portico::Part(20'000));
  const int rounds = Argument(argc, argv, 2, portico::Part(9));
  cpu_set_t one;
  CPU_ZERO(&one);
  CPU_SET(0, &one);
  if (sched_setaffinity(0, sizeof one, &one) != 0) Fail("sched_setaffinity"); // children inherit it

  std::string file = "/tmp/portico-benchmark-XXXXXX";
  const int descriptor = mkstemp(file.data());
  if (descriptor < 0) Fail("mkstemp");
  close(descriptor);
  {
    std::ofstream commands(file);
    for (int i = 0; i < queries; ++i) commands << Query << '\n';
  }
  std::uint16_t port = 0;
  const int listener = Listen(port);
  const pid_t server = fork();
  if (server == 0) Serve(listener);

  const std::string log = file + ".xml";
  Compare(Contestants(port, file, log, queries), queries, rounds);
  kill(server, SIGTERM);
  unlink(file.c_str());
  unlink(log.c_str());
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << '\n';
  return 1;
}

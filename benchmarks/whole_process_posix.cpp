// Whole processes, start-up included: portico-run against a bare socket loop that puts the same bytes on the wire.
// Everything, the answering server too, runs on one core; the two take turns, and medians are compared.

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
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

constexpr int Queries = 20'000;
constexpr int Rounds = 9;
constexpr std::string_view Query = "MEAS:VOLT:DC?";

[[noreturn]] void Fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

/// One exchange as it stands on the wire.
struct Exchange {
  std::string Sent;
  std::string Answer;
};

const std::array<Exchange, 3> Exchanges = {{
    {"*OPC?\r\n", "1\n"},
    {std::string(Query) + "\r\n", "+1.00023837E+00\n"},
    {":SYST:ERR?\r\n", "0,\"No error\"\n"},
}};

struct Case {
  const char* Name;
  std::vector<Exchange> PerQuery;
  std::vector<std::string> Arguments;
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

void BareLoop(std::uint16_t port, const std::vector<Exchange>& exchanges) {
  const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (connect(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) Fail("connect");
  NoDelay(descriptor);
  std::array<char, 4096> answer{};
  for (int i = 0; i < Queries; ++i) {
    for (const Exchange& exchange : exchanges) {
      SendAll(descriptor, exchange.Sent);
      std::size_t filled = 0;
      do {
        const auto count = recv(descriptor, answer.data() + filled, answer.size() - filled, 0);
        if (count <= 0) Fail("recv");
        filled += static_cast<std::size_t>(count);
      } while (answer[filled - 1] != '\n');
    }
  }
  close(descriptor);
}

/// Seconds that a child takes which does `work`.
double Time(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = 0;
  if (waitpid(child, &status, 0) != child || status != 0) {
    std::cerr << "a child failed with status " << status << "\n";
    std::exit(1);
  }
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

[[noreturn]] void Exec(const std::string& instrument, const std::string& file, const Case& run) {
  std::vector<std::string> words = {PORTICO_RUN};
  words.insert(words.end(), run.Arguments.begin(), run.Arguments.end());
  words.push_back(instrument);
  words.push_back(file);
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  const int null = open("/dev/null", O_WRONLY | O_CLOEXEC);
  dup2(null, STDOUT_FILENO);
  execv(PORTICO_RUN, argv.data());
  _exit(127);
}

double Median(std::vector<double> seconds) {
  std::nth_element(seconds.begin(), seconds.begin() + Rounds / 2, seconds.end());
  return seconds[Rounds / 2];
}

void Compare(const Case& run, std::uint16_t port, const std::string& file) {
  const std::string instrument = "TCPIP::127.0.0.1::" + std::to_string(port) + "::SOCKET";
  std::vector<double> bare;
  std::vector<double> portico;
  for (int round = 0; round < Rounds; ++round) {
    bare.push_back(Time([&] { BareLoop(port, run.PerQuery); }));
    portico.push_back(Time([&] { Exec(instrument, file, run); }));
  }
  const auto perQuery = [](double seconds) { return seconds / Queries * 1e6; };
  std::printf("%-28s bare loop %6.2f us/query   portico-run %6.2f us/query   ratio %.2f\n", run.Name,
              perQuery(Median(bare)), perQuery(Median(portico)), Median(portico) / Median(bare));
}

} // namespace

int main() {
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
    for (int i = 0; i < Queries; ++i) commands << Query << '\n';
  }
  std::uint16_t port = 0;
  const int listener = Listen(port);
  const pid_t server = fork();
  if (server == 0) Serve(listener);

  const std::string log = file + ".xml";
  const std::vector<Exchange> alone = {Exchanges[1]};
  const std::vector<Exchange> cared = {Exchanges[0], Exchanges[1], Exchanges[2]};
  const std::vector<std::string> off = {"--option", "SCPIProtocolOPCPacing=Off", "--option",
                                        "SCPIProtocolAutoErrorChecking=Off"};
  const std::vector<std::string> logging = {"--log", log, "--overwrite"};
  std::vector<std::string> offLogging = off;
  offLogging.insert(offLogging.end(), logging.begin(), logging.end());
  const std::vector<Case> cases = {
      {"(a) pacing and checks off", alone, off},
      {"(b) OPC pacing, error check", cared, {}},
      {"(c) as (a), with the log", alone, offLogging},
      {"(d) as (b), with the log", cared, logging},
  };
  for (const Case& run : cases) Compare(run, port, file);
  kill(server, SIGTERM);
  unlink(file.c_str());
  unlink(log.c_str());
  return 0;
}

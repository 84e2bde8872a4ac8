#include "support/Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace portico::test {
namespace {

constexpr std::chrono::milliseconds BetweenSignals = std::chrono::milliseconds(50);

struct Pipe {
  Pipe() {
    std::array<int, 2> ends = {};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("cannot make a pipe");
    readEnd = ends[0];
    writeEnd = ends[1];
  }
  int readEnd = -1;
  int writeEnd = -1;
};

void CloseEnd(int& end) {
  if (end >= 0) ::close(end);
  end = -1;
}

/// Appends what there is to read; closes the pipe at its end.
void Drain(int& end, std::string& text) {
  std::array<char, 65536> bytes = {};
  const ssize_t count = ::read(end, bytes.data(), bytes.size());
  if (count > 0) {
    text.append(bytes.data(), static_cast<std::size_t>(count));
  } else {
    CloseEnd(end);
  }
}

/// The program gets the streams, and signals as a shell would leave them.
pid_t Spawn(const std::vector<std::string>& command, int input, int output, int error) {
  posix_spawn_file_actions_t actions = {};
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, error, STDERR_FILENO);
  posix_spawnattr_t attributes = {};
  ::posix_spawnattr_init(&attributes);
  sigset_t defaults = {};
  sigemptyset(&defaults);
  sigaddset(&defaults, SIGPIPE);
  ::posix_spawnattr_setsigdefault(&attributes, &defaults);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);

  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  pid_t id = -1;
  const int failure = ::posix_spawn(&id, arguments.front(), &actions, &attributes, arguments.data(), environ);
  ::posix_spawnattr_destroy(&attributes);
  ::posix_spawn_file_actions_destroy(&actions);
  if (failure != 0) throw std::runtime_error("cannot run " + command.front());
  return id;
}

} // namespace

Process::Process(const std::vector<std::string>& command) {
  std::signal(SIGPIPE, SIG_IGN); // a program that is gone takes no more input; that is no end for the test
  Pipe input;
  Pipe output;
  Pipe error;
  m_id = Spawn(command, input.readEnd, output.writeEnd, error.writeEnd);
  CloseEnd(input.readEnd);
  CloseEnd(output.writeEnd);
  CloseEnd(error.writeEnd);
  ::fcntl(input.writeEnd, F_SETFL, O_NONBLOCK);
  m_input = input.writeEnd;
  m_output = output.readEnd;
  m_error = error.readEnd;
}

Process::~Process() {
  CloseEnd(m_input);
  CloseEnd(m_output);
  CloseEnd(m_error);
  if (m_id < 0) return;
  Signal(SIGKILL);
  ::waitpid(m_id, nullptr, 0);
}

void Process::Write(std::string_view bytes) {
  m_unsent += bytes;
  Feed();
}

/// Writes what the pipe takes now.
void Process::Feed() {
  if (m_input < 0) return;
  const ssize_t count = ::write(m_input, m_unsent.data(), m_unsent.size());
  if (count >= 0) {
    m_unsent.erase(0, static_cast<std::size_t>(count));
  } else if (errno != EAGAIN) {
    m_unsent.clear();
  }
  if (m_unsent.empty() && m_closesInput) CloseEnd(m_input);
}

void Process::WaitForOutput(std::string_view text) {
  const TimePoint deadline = Deadline();
  std::size_t found = m_outcome.out.find(text, m_seen);
  while (found == std::string::npos && Pump(deadline)) found = m_outcome.out.find(text, m_seen);
  if (found == std::string::npos) return Kill(text);
  m_seen = found + text.size();
}

std::string Process::ReadLine() {
  const std::size_t begin = m_seen;
  WaitForOutput("\n");
  return m_seen > begin ? m_outcome.out.substr(begin, m_seen - begin - 1) : std::string();
}

void Process::Signal(int number) const {
  if (m_id > 0) ::kill(m_id, number); // -1 would mean every process
}

Outcome Process::Wait() {
  m_closesInput = true;
  Feed();
  const TimePoint deadline = Deadline();
  while (Pump(deadline)) {
  }
  return Reap();
}

Outcome Process::SignalUntilEnd(int number) {
  const TimePoint deadline = Deadline();
  do {
    Signal(number);
  } while (PumpUntil(deadline, std::chrono::steady_clock::now() + BetweenSignals));
  return Reap();
}

/// Moves bytes once; false at the deadline, or when the program has closed both its streams.
bool Process::Pump(TimePoint deadline) {
  if (!Running()) return false;
  const auto left =
      std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now()).count();
  if (left <= 0) return false;
  std::array<pollfd, 3> entries = {
      {{m_unsent.empty() ? -1 : m_input, POLLOUT, 0}, {m_output, POLLIN, 0}, {m_error, POLLIN, 0}}};
  ::poll(entries.data(), entries.size(), static_cast<int>(left));
  if (entries[0].revents != 0) Feed();
  if (entries[1].revents != 0) Drain(m_output, m_outcome.out);
  if (entries[2].revents != 0) Drain(m_error, m_outcome.err);
  return true;
}

/// Moves bytes until the moment; false at the deadline, or when the program has closed both its streams.
bool Process::PumpUntil(TimePoint deadline, TimePoint moment) {
  while (Pump(std::min(deadline, moment))) {
  }
  return Running() && std::chrono::steady_clock::now() < deadline;
}

void Process::Kill(std::string_view waitedFor) {
  ADD_FAILURE() << "waited in vain for: " << waitedFor << "\nstandard output:\n"
                << m_outcome.out << "\nstandard error:\n"
                << m_outcome.err;
  Signal(SIGKILL);
}

Outcome Process::Reap() {
  if (Running()) Kill("the end of the program");
  CloseEnd(m_input);
  int status = 0;
  ::waitpid(m_id, &status, 0);
  m_id = -1;
  m_outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  return m_outcome;
}

} // namespace portico::test

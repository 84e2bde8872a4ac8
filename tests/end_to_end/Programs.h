#pragma once

#include "support/Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace portico::test {

using Arguments = std::vector<std::string>;

inline const std::string kSimulated = "SIM::dmm::INSTR";

/// Lines go out alone, without pacing and error checks.
inline const Arguments kBare = {"--option", "SCPIProtocolOPCPacing=Off", "--option",
                                "SCPIProtocolAutoErrorChecking=Off"};

inline Arguments operator+(Arguments left, const Arguments& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

/// The command line of portico-run.
inline Arguments PorticoRun(const Arguments& arguments) { return Arguments{PORTICO_RUN} + arguments; }

/// Runs portico-run to its end.
inline Outcome RunPortico(const Arguments& arguments, std::string_view input = {}) {
  Process process(PorticoRun(arguments));
  process.Write(input);
  return process.Wait();
}

/// portico-sim on a free port of this machine, for as long as the object lives.
class SimulatorProgram {
public:
  explicit SimulatorProgram(const Arguments& arguments = {})
      : m_process(Arguments{PORTICO_SIM, "--port", "0"} + arguments) {
    m_process.WaitForOutput("listening on ");
    m_address = m_process.ReadLine();
  }

  /// As it was printed, "ADDR:PORT".
  const std::string& Address() const { return m_address; }
  std::string ResourceName() const {
    const auto colon = m_address.rfind(':');
    return "TCPIP::" + m_address.substr(0, colon) + "::" + m_address.substr(colon + 1) + "::SOCKET";
  }
  Process& Program() { return m_process; }

private:
  Process m_process;
  std::string m_address;
};

/// Command files of one test.
class CommandFiles {
public:
  CommandFiles() { std::filesystem::create_directories(m_folder); }
  ~CommandFiles() { std::filesystem::remove_all(m_folder); }
  CommandFiles(const CommandFiles&) = delete;
  CommandFiles& operator=(const CommandFiles&) = delete;

  std::string Folder() const { return m_folder; }

  /// Writes the file and answers its path.
  std::string Add(const std::string& name, const std::string& bytes) const {
    std::string path = m_folder / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

private:
  static std::string TestName() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(test->test_suite_name()) + "." + test->name();
    for (char& character : name) {
      if (character == '/') character = '-';
    }
    return name + "." + std::to_string(std::random_device()());
  }

  // Tests run side by side, each in a process of its own, and so do whole test programs.
  const std::filesystem::path m_folder = std::filesystem::path(testing::TempDir()) / TestName();
};

/// The whole text but for the lines that begin with the mark.
inline std::string WithoutLines(const std::string& text, const std::string& mark) {
  std::string kept;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
    if (text.compare(begin, mark.size(), mark) != 0) kept.append(text, begin, end - begin);
    begin = end;
  }
  return kept;
}

inline long CountLines(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }

} // namespace portico::test

#pragma once

#include "support/Files.h"
#include "support/Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace portico::test {

using Arguments = std::vector<std::string>;

inline const std::string SimulatedMeter = "SIM::dmm::INSTR";
/// The command file that shows what Portico does.
inline const std::string FirstSteps = std::string(PORTICO_EXAMPLES) + "/first-steps.cmd";

/// Lines go out alone, without pacing and error checks.
inline const Arguments BareOptions = {"--option", "SCPIProtocolOPCPacing=Off", "--option",
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
    m_address = NextAddress();
  }

  /// As it was printed, "ADDR:PORT".
  const std::string& Address() const { return m_address; }
  std::string ResourceName() const {
    const auto colon = m_address.rfind(':');
    return "TCPIP::" + m_address.substr(0, colon) + "::" + m_address.substr(colon + 1) + "::SOCKET";
  }
  /// The rest of the line that tells of one listener more, behind "listening on ".
  std::string NextAddress() {
    m_process.WaitForOutput("listening on ");
    return m_process.ReadLine();
  }
  Process& Program() { return m_process; }

private:
  Process m_process;
  std::string m_address;
};

/// Command files of one test.
class CommandFiles {
public:
  std::string Folder() const { return m_folder.Path(); }

  /// Writes the file and answers its path.
  std::string Add(const std::string& name, const std::string& bytes) const {
    m_folder.Write(name, bytes);
    return m_folder.At(name);
  }

private:
  const TemporaryFolder m_folder;
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

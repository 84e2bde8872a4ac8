#pragma once

#include "end_to_end/Programs.h"

#include <csignal>
#include <string>

namespace portico::test {

/// portico-tap on a free port of this machine, for as long as the object lives.
class TapProgram {
public:
  TapProgram(const std::string& option, const std::string& instrument, const Arguments& arguments = {})
      : Program(Arguments{PORTICO_TAP, option, "0"} + arguments + Arguments{instrument}) {
    Program.WaitForOutput("listening on 127.0.0.1:");
    Port = Program.ReadLine();
    Port = Port.substr(0, Port.find(' '));
  }

  Outcome End() {
    Program.Signal(SIGINT);
    return Program.Wait();
  }

  Process Program;
  std::string Port;
};

inline std::string RawName(const std::string& port) { return "TCPIP::127.0.0.1::" + port + "::SOCKET"; }
inline std::string Vxi11Name(const std::string& port) { return "TCPIP::127.0.0.1," + port + "::inst0::INSTR"; }
inline std::string HislipName(const std::string& port) { return "TCPIP::127.0.0.1::hislip0," + port + "::INSTR"; }

/// The port of a listener, from "127.0.0.1:PORT" or "127.0.0.1:PORT PROTOCOL".
inline std::string PortOf(const std::string& address) {
  const std::string port = address.substr(address.rfind(':') + 1);
  return port.substr(0, port.find(' '));
}

} // namespace portico::test

#pragma once

#include "simulator/status/SimulatedConnection.h"
#include "support/doubles/InstrumentScript.h"

#include <deque>

namespace portico::test {

/// A connection to a simulated instrument that does what a script says. It knows answers, parts of them, and
/// silence.
class ScriptedConnection final : public simulator::SimulatedConnection {
public:
  /// Adds all that is written to `received`, which must outlive the connection.
  ScriptedConnection(InstrumentScript script, std::string& received);

  void Write(std::string_view bytes, simulator::TimePoint now) override;
  std::optional<std::string> Read(simulator::TimePoint now) override;
  std::optional<simulator::TimePoint> NextEvent() const override;

  /// Responds, asked or not.
  void Send(std::string text);
  /// Whether what was read last is, or ends, a whole response.
  bool Whole() const { return m_whole; }

private:
  struct Response {
    simulator::TimePoint ready;
    std::string text;
    bool whole;
  };

  const InstrumentScript m_script;
  std::string& m_received;
  std::string m_input;
  std::deque<Response> m_responses;
  bool m_whole = false;
};

} // namespace portico::test

#pragma once

#include "simulator/connection/Connection.h"
#include "simulator/language/MessageFramer.h"
#include "simulator/status/SimulatedConnection.h"

#include <cstdint>

namespace portico::simulator {

/// A connection that carries a stream of bytes, in which line feeds end the messages. A protocol may mark their ends,
/// too.
class StreamConnection final : public SimulatedConnection {
public:
  /// `instrument` must outlive the connection.
  explicit StreamConnection(Instrument& instrument) : m_connection(instrument) {}

  void Write(std::string_view bytes, TimePoint now) override;
  std::optional<std::string> Read(TimePoint now) override { return m_connection.Read(now); }
  std::optional<TimePoint> NextEvent() const override { return m_connection.NextEvent(); }

  /// The message that was written ends here, with or without a line feed.
  void End(TimePoint now);
  /// Device clear: what was written and not carried out is dropped, and so is what was not read.
  void Clear(TimePoint now);

  // For a server; as in Connection.

  bool CloseRequested() const { return m_connection.CloseRequested(); }
  bool AcceptsInput() const { return m_connection.AcceptsInput(); }
  bool Busy() const { return m_connection.Busy(); }
  bool MessageAvailable() const { return m_connection.MessageAvailable(); }
  std::uint8_t SerialPoll(bool messageAvailable, TimePoint now) {
    return m_connection.SerialPoll(messageAvailable, now);
  }
  void AnswerTaken() { m_connection.AnswerTaken(); }
  void ReportInterrupted() { m_connection.ReportInterrupted(); }
  void ReportUnterminated() { m_connection.ReportUnterminated(); }

private:
  Connection m_connection;
  MessageFramer m_framer{Connection::LongestMessage};
};

} // namespace portico::simulator

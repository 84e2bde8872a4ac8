#pragma once

#include "simulator/connection/Connection.h"
#include "simulator/connection/IMessageConnection.h"
#include "simulator/language/MessageFramer.h"
#include "simulator/status/SimulatedConnection.h"

#include <cstdint>

namespace portico::simulator {

/// A connection that carries a stream of bytes, in which line feeds end the messages. A protocol may mark their ends,
/// too.
class StreamConnection final : public SimulatedConnection, public IMessageConnection {
public:
  /// `instrument` must outlive the connection.
  explicit StreamConnection(Instrument& instrument) : m_connection(instrument) {}

  void Write(std::string_view bytes, TimePoint now) override;
  std::optional<std::string> Read(TimePoint now) override { return m_connection.Read(now); }
  std::optional<TimePoint> NextEvent() const override { return m_connection.NextEvent(); }

  void End(TimePoint now) override;
  /// A whole answer, or a piece of one without end.
  std::optional<Piece> ReadPiece(TimePoint now) override;
  void Clear(TimePoint now) override;
  /// What waits to be carried out is dropped, too.
  void Interrupt(TimePoint now) override;

  // For a server; as in Connection.

  bool CloseRequested() const override { return m_connection.CloseRequested(); }
  bool AcceptsInput() const { return m_connection.AcceptsInput(); }
  bool HasRoom() override { return AcceptsInput(); }
  bool Busy() const override { return m_connection.Busy(); }
  bool MessageAvailable() const override { return m_connection.MessageAvailable(); }
  std::uint8_t SerialPoll(bool messageAvailable, TimePoint now) override {
    return m_connection.SerialPoll(messageAvailable, now);
  }
  void AnswerTaken() override { m_connection.AnswerTaken(); }
  void ReportInterrupted() override { m_connection.ReportInterrupted(); }
  void ReportUnterminated() override { m_connection.ReportUnterminated(); }

private:
  Connection m_connection;
  MessageFramer m_framer{Connection::LongestMessage};
};

} // namespace portico::simulator

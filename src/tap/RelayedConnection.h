#pragma once

#include "simulator/connection/IMessageConnection.h"
#include "tap/Relay.h"

#include <memory>
#include <utility>

namespace portico::tap {

/// A client's connection to an instrument behind a bridge. A message ends at a line feed outside blocks, too; only one
/// with a question mark outside strings and blocks is answered.
class RelayedConnection final : public simulator::IMessageConnection {
public:
  using TimePoint = simulator::TimePoint;

  explicit RelayedConnection(std::shared_ptr<Relay> relay) : m_relay(std::move(relay)) {}
  ~RelayedConnection() override { m_relay->Leave(); }
  RelayedConnection(const RelayedConnection&) = delete;
  RelayedConnection& operator=(const RelayedConnection&) = delete;

  State Standing() const override { return m_relay->Standing(); }
  void Write(std::string_view bytes, TimePoint /*now*/) override { m_relay->Write(bytes, false); }
  void End(TimePoint /*now*/) override { m_relay->Write({}, true); }
  bool HasRoom() override;
  std::optional<Piece> ReadPiece(TimePoint now) override;
  std::optional<TimePoint> NextEvent() const override;
  void Clear(TimePoint /*now*/) override { m_relay->Clear(); }
  void Interrupt(TimePoint /*now*/) override { m_relay->DropAnswers(); }
  /// The instrument does not ask for that; it may be lost.
  bool CloseRequested() const override { return false; }
  bool Busy() const override { return m_relay->Answers() || m_relay->Answering(); }
  bool MessageAvailable() const override { return m_relay->Answers(); }
  /// The instrument is not asked: nothing but whether a message is available is known.
  std::uint8_t SerialPoll(bool messageAvailable, TimePoint now) override;

  // What the client does wrong is between it and the tap.

  void AnswerTaken() override {}
  void ReportInterrupted() override {}
  void ReportUnterminated() override {}

private:
  const std::shared_ptr<Relay> m_relay;
};

} // namespace portico::tap

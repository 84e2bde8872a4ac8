#pragma once

#include "server/IServedConnection.h"
#include "simulator/connection/IMessageConnection.h"
#include "tap/MarkedClient.h"
#include "tap/Talk.h"
#include "wire/HislipReader.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace portico::tap {

/// What a client and the bridge to an instrument have for each other, between a RelayedConnection and the wire to the
/// bridge's MarkedClient: no I/O, no thread and no clock. It is owned by both together. What the client says goes on at
/// once; answers wait until they are read.
class Relay : public std::enable_shared_from_this<Relay> {
public:
  using Piece = simulator::IMessageConnection::Piece;
  using State = simulator::IMessageConnection::State;

  /// `recorder`, which must outlive it, gets a session once the instrument is open.
  explicit Relay(Recorder& recorder) : m_recorder(recorder) {}

  /// The end to be served on the wire, once. The instrument is lost with it.
  std::unique_ptr<server::IServedConnection> WireEnd();

  // For the client.

  State Standing() const { return m_state; }
  void Write(std::string_view bytes, bool end);
  /// What was said before is not answered any more, and the instrument is cleared.
  void Clear();
  /// Only the former.
  void DropAnswers();
  std::optional<Piece> Read();
  bool HasRoom() const { return m_output.size() < MostWaiting; }
  bool Answers() const { return !m_answers.empty(); }
  /// Whether the bridge is at something that it was told, and its answer is wanted.
  bool Answering() const { return m_state != State::Lost && m_done < m_said && m_said > m_unwanted; }
  /// Whether something has happened since this was asked last.
  bool TakeNews() { return std::exchange(m_news, false); }
  bool HasNews() const { return m_news; }
  /// It has gone. What it said goes on all the same.
  void Leave();
  bool HasClient() const { return !m_left; }

private:
  class End;

  /// What waits for a side that does not take it, in bytes: from there on the other is not listened to.
  static constexpr std::size_t MostWaiting = std::size_t{256} * 1024;
  /// What a client may have said ahead at most, in bytes; more ends the conversation.
  static constexpr std::size_t MostSaid = std::size_t{64} << 20U;

  void Say(wire::HislipType type, std::string_view bytes = {});
  void Take(const wire::HislipPiece& piece);
  void TakeAnswer(const wire::HislipPiece& piece);
  void TakeDone();
  void Lose();
  /// The client has gone, and all that it said is done.
  bool HasNobody() const { return m_left && m_output.empty() && m_done == m_said; }
  /// Everything has gone on that was recorded.
  bool IsForwarded() const { return m_output.empty() && m_answers.empty(); }

  Recorder& m_recorder;
  std::optional<Talk> m_talk; ///< once the instrument is open
  bool m_unwritten = false;   ///< something may have been recorded since the last Write()
  State m_state = State::Opening;
  bool m_left = false;
  bool m_news = false;
  std::string m_output; ///< to the bridge
  wire::HislipReader m_reader{MarkedWire::AnyLength};
  std::deque<Piece> m_answers;
  std::size_t m_answerBytes = 0;
  bool m_amidAnswer = false; ///< the end of the last one has not come
  // How many things were said to the bridge, how many of them it has done, and the last whose answer is unwanted.
  std::uint64_t m_said = 0;
  std::uint64_t m_done = 0;
  std::uint64_t m_unwanted = 0;
};

} // namespace portico::tap

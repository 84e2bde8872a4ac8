#pragma once

#include "simulator/connection/IMessageConnection.h"
#include "wire/HislipReader.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace portico::simulator {

/// What one HiSLIP session says to the device and hears of it, in synchronized mode: the messages of its synchronous
/// connection, one after the other, each with the answers to it. An answer that the client does not wait for is
/// dropped, and both sides are told so: -410.
class HislipDialogue {
public:
  /// `faults` are those of the instrument, and must outlive the dialogue.
  HislipDialogue(std::unique_ptr<IMessageConnection> connection, Misbehaviour& faults);

  IMessageConnection::State Standing() const { return m_stream->Standing(); }

  /// The longest message, its header included, that the client takes.
  void SetLongestMessage(std::uint64_t size);

  /// A piece of Data or DataEnd, or a Trigger.
  void Take(const wire::HislipPiece& piece);
  /// Appends the next answer to what is sent on the synchronous connection. `admitted`: no other session's lock is in
  /// the way.
  void Collect(std::string& output, bool admitted, TimePoint now);
  std::optional<TimePoint> NextEvent(bool admitted) const;
  bool AcceptsInput() const;
  /// Whether something is still to be carried out or to be sent.
  bool Busy() const { return !m_input.empty() || m_stream->Busy(); }
  /// Whether the session is to end once it is not busy.
  bool CloseRequested() const { return m_stream->CloseRequested() || Standing() == IMessageConnection::State::Lost; }

  /// The id of the message that an answer was dropped for, if one was since the last call: the asynchronous connection
  /// tells of it, too.
  std::optional<std::uint32_t> TakeInterruption();
  bool Interrupted() const { return m_interruption.has_value(); }

  /// Whether the message of that id, or a later one, has come whole.
  bool HasReceived(std::uint32_t id) const { return static_cast<std::int32_t>(id - m_lastId) <= 0; }
  /// The client has taken the last answer whole.
  void Delivered();
  std::uint8_t StatusByte(TimePoint now) { return m_stream->SerialPoll(m_available, now); }

  /// Drops all that was said and is to be said; what comes is dropped, too, until the clear ends.
  void BeginClear(TimePoint now);
  bool Clearing() const { return m_clearing; }
  void EndClear();

private:
  struct Input {
    std::string Bytes;
    std::uint32_t Id = 0;
    bool End = false;
  };

  void Forget();
  void Enter(const wire::HislipPiece& piece);
  void Send(std::string& output, const IMessageConnection::Piece& piece);
  void Interrupt(std::string& output, TimePoint now);

  const std::unique_ptr<IMessageConnection> m_stream;
  Misbehaviour& m_faults;
  std::size_t m_longestPayload = 0;
  /// What waits for the answers to the message before.
  std::deque<Input> m_input;
  std::size_t m_inputBytes = 0;
  bool m_amidMessage = false; ///< the last piece was not its message's last
  std::uint32_t m_lastId = 0; ///< of the last message that has come whole
  /// The message that is being carried out, and whether the device has it whole.
  std::uint32_t m_currentId = 0;
  bool m_whole = true;
  bool m_available = false;        ///< bit 4 of the status byte
  bool m_deliveryExpected = false; ///< an answer was sent whole, and the client has not said that it has it
  std::optional<std::uint32_t> m_interruption;
  bool m_clearing = false;
};

} // namespace portico::simulator

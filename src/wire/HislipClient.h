#pragma once

#include "wire/HislipAnswers.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace portico::wire {

enum class HislipChannel : std::uint8_t { Synchronous, Asynchronous };

/// The client's side of HiSLIP 1.0 in synchronized mode, without I/O: what is to be sent on each of the two
/// connections, and what comes of the bytes that arrive on them. Its owner moves the bytes and sees to the time.
///
/// Open(), Clear() and GoToLocal() begin an exchange that is over when Ready(), or when there is a Failure(); until
/// then what is to be sent is sent and what arrives is handed in, on both connections. After a failure both are of no
/// use.
class HislipClient {
public:
  /// Longest payload that the instrument may send, in bytes. It is passed on as it comes.
  static constexpr std::uint64_t LongestPayload = std::uint64_t{1024} * 1024;

  /// `subAddress` is the device's name, as in "hislip0".
  explicit HislipClient(std::string subAddress);

  /// Begins anew on a fresh connection, which is the synchronous one.
  void Open();
  /// The instrument has answered on the first connection: now a second has to be made to the same port.
  bool AwaitsSecondConnection() const { return m_phase == Phase::SecondConnection; }
  void SecondConnectionMade();

  /// Sends one message; the one before has to be sent whole, or cleared. Answers to earlier ones are dropped from now
  /// on.
  void Write(std::string message);
  /// The message is not sent whole yet.
  bool Writing() const { return m_writing; }
  /// Has the instrument drop all commands and answers, and drops those that are on their way.
  void Clear();
  /// Gives the front panel back.
  void GoToLocal();
  /// Asks who has locked the instrument; all goes on meanwhile.
  void AskForLocks();
  /// Others have, as far as that was asked and is known since the last Write.
  bool LockedByOthers() const { return m_lockedByOthers; }

  /// Open, and no exchange is under way.
  bool Ready() const { return m_phase == Phase::Ready; }
  /// Why nothing can go on, and what can be done about one that cannot be opened, without a full stop; empty if there
  /// is no reason.
  const std::string& Failure() const { return m_failure; }
  /// What the instrument complained of since the last Write, in the same form; all goes on after that.
  const std::string& Complaint() const { return m_complaint; }

  /// What is to be sent next; empty if there is nothing, or if the instrument has to be heard on the other connection
  /// first. Valid until the next call.
  std::string_view Output(HislipChannel channel);
  /// The first `count` bytes of it are sent.
  void Sent(HislipChannel channel, std::size_t count);

  /// Takes bytes that came on the synchronous connection off the front of `bytes`, up to the end of the next part of
  /// the awaited answer; all of them, if there is none in them. The payload stands in `bytes`.
  HislipAnswer Receive(std::string_view& bytes);
  /// Takes all that came on the asynchronous connection.
  void ReceiveAsynchronous(std::string_view bytes);

private:
  enum class Phase : std::uint8_t {
    Closed,
    InitializeResponse,
    SecondConnection,
    AsyncInitializeResponse,
    MaximumMessageSizeResponse,
    AsyncDeviceClearAcknowledge,
    DeviceClearAcknowledge,
    RemoteLocalResponse,
    Ready,
  };

  /// Bytes on their way to a connection.
  struct Stream {
    std::string Bytes = {};
    std::size_t Sent = 0;
    HislipReader Reader = HislipReader(LongestPayload);
  };

  Stream& StreamOf(HislipChannel channel) {
    return channel == HislipChannel::Synchronous ? m_synchronous : m_asynchronous;
  }
  void ComposeNext();
  HislipAnswer Take(const HislipPiece& piece);
  void TakeAsynchronous(const HislipPiece& piece);
  /// What either connection may bring; false if the piece is nothing of that.
  bool TakeError(const HislipPiece& piece, HislipChannel channel);
  void TakeFatalError(const HislipPiece& piece);
  void TakeInitializeResponse(const HislipPiece& piece);
  void TakeMaximumMessageSize(const HislipPiece& piece);
  void TakeDeviceClearAcknowledge(const HislipPiece& piece);
  bool Opening() const { return m_phase < Phase::AsyncDeviceClearAcknowledge; }
  bool Clearing() const {
    return m_phase == Phase::AsyncDeviceClearAcknowledge || m_phase == Phase::DeviceClearAcknowledge;
  }
  /// `advice` is what can be done about one while opening.
  void Fail(std::string_view reason, std::string_view advice = "try again, or switch the instrument off and on");
  void FailWithoutHeader();

  std::string m_subAddress;
  Phase m_phase = Phase::Closed;
  Stream m_synchronous;
  Stream m_asynchronous;
  HislipAnswers m_answers;
  std::string m_failure;
  std::string m_complaint;
  bool m_askingForLocks = false;
  bool m_lockedByOthers = false;
  std::uint16_t m_session = 0;
  bool m_overlapped = false;
  /// Longest payload that the instrument takes.
  std::uint64_t m_longestPayload = 0;
  std::uint32_t m_nextId = HislipFirstMessageId;
  /// The last answer was taken whole, and no message has told the instrument so.
  bool m_delivered = false;
  /// The message that is being sent, and how much of it is in messages of the protocol.
  std::string m_message;
  std::size_t m_composed = 0;
  bool m_composing = false;
  bool m_writing = false;
  /// How often the instrument told of a dropped answer on the asynchronous connection only; negative, if it did so on
  /// the synchronous one only.
  std::int64_t m_interruptions = 0;
};

} // namespace portico::wire

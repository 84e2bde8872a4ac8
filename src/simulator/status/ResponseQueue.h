#pragma once

#include "simulator/status/Misbehaviour.h"
#include "simulator/status/SimulatedConnection.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>

namespace portico::simulator {

/// The output to one connection: response messages in the order in which they were made, each ready from some time on.
class ResponseQueue {
public:
  static constexpr std::size_t MostMessages = 1024;
  static constexpr std::size_t MostBytes = 4U << 20U;

  /// No more messages are to be added until one was taken. One message alone may be larger than the bound.
  bool Full() const { return m_messages.size() >= MostMessages || m_bytes >= MostBytes; }

  /// Adds a response message without its line feed, which is added here. It is ready at `readyAt`, and not before those
  /// ahead of it. An endless one goes on in pieces, without a line feed, for as long as they are taken. The fault is
  /// kept for whoever takes the message.
  void Push(std::string message, TimePoint readyAt, bool endless = false, AnswerFault fault = AnswerFault::None);

  /// The same with so many bytes behind the message, from 0 to 250 over and over. They go out in pieces that do not end
  /// in a line feed, but for the last: none of them stands in memory before. With `AnswerFault::Half` half of them do,
  /// and nothing is left of the fault for others.
  void PushLong(std::string message, std::uint64_t more, TimePoint readyAt, AnswerFault fault = AnswerFault::None);

  /// The next message that is ready at `now`, or the next piece of a long answer or one without end.
  std::optional<std::string> Pop(TimePoint now);

  /// The fault of the message that was taken last.
  AnswerFault FaultOfLast() const { return m_lastFault; }

  /// When the next Pop() may succeed, past or to come; none if there is nothing to take.
  std::optional<TimePoint> NextReady() const;

  bool Empty() const { return m_messages.empty(); }
  /// How many messages have been added.
  std::size_t Count() const { return m_count; }
  void Clear();

private:
  struct Message {
    std::string Text;
    TimePoint ReadyAt;
    AnswerFault Fault;
    std::uint64_t Position = 0; ///< of the bytes behind the text, how many have gone out
    std::uint64_t More = 0;     ///< how many there are
    bool Ends = true;           ///< in a line feed
  };

  void Add(Message message);
  static std::string NextPiece(Message& message);

  std::deque<Message> m_messages;
  std::size_t m_bytes = 0;
  std::size_t m_count = 0;
  AnswerFault m_lastFault = AnswerFault::None;
  std::optional<TimePoint> m_nextPiece; ///< of the answer without end
};

} // namespace portico::simulator

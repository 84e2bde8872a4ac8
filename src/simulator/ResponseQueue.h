#pragma once

#include "simulator/SimulatedInstrument.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>

namespace portico::simulator {

/// The output of an instrument: response messages in the order in which they were made, each ready from some time on.
/// It also plays the faults that concern answers.
class ResponseQueue {
public:
  using Duration = TimePoint::duration;

  static constexpr std::size_t kMostMessages = 1024;
  static constexpr std::size_t kMostBytes = 4U << 20U;

  /// No more messages are to be added until one was taken. One message alone may be larger than the bound.
  bool Full() const { return m_messages.size() >= kMostMessages || m_bytes >= kMostBytes; }

  /// Adds a response message without its line feed, which is added here.
  void Push(std::string message, TimePoint now);

  /// The next message that is ready at `now`, or the next piece of an answer without end.
  std::optional<std::string> Pop(TimePoint now);

  /// When the next Pop() may succeed, past or to come; none if there is nothing to take.
  std::optional<TimePoint> NextReady() const;

  bool Empty() const { return m_messages.empty(); }
  void Clear();

  /// The next message becomes ready this much later than it was made.
  void DelayNext(Duration delay) { m_delay = delay; }
  /// While silent, answers are dropped.
  void SetSilent(bool silent) { m_silent = silent; }
  /// The next message never ends: it goes on in pieces, without a line feed, for as long as they are taken.
  void MakeNextEndless() { m_nextIsEndless = true; }

private:
  struct Message {
    std::string text;
    TimePoint readyAt;
  };

  std::deque<Message> m_messages;
  std::size_t m_bytes = 0;
  Duration m_delay{};
  bool m_silent = false;
  bool m_nextIsEndless = false;
  std::optional<TimePoint> m_nextPiece; ///< of the answer without end
};

} // namespace portico::simulator

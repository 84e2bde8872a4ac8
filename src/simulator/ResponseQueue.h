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
  bool Full() const { return messages_.size() >= kMostMessages || bytes_ >= kMostBytes; }

  /// Adds a response message without its line feed, which is added here.
  void Push(std::string message, TimePoint now);

  /// The next message that is ready at `now`, or the next piece of an answer without end.
  std::optional<std::string> Pop(TimePoint now);

  /// When the next Pop() may succeed, past or to come; none if there is nothing to take.
  std::optional<TimePoint> NextReady() const;

  bool Empty() const { return messages_.empty(); }
  void Clear();

  /// The next message becomes ready this much later than it was made.
  void DelayNext(Duration delay) { delay_ = delay; }
  /// While silent, answers are dropped.
  void SetSilent(bool silent) { silent_ = silent; }
  /// The next message never ends: it goes on in pieces, without a line feed, for as long as they are taken.
  void MakeNextEndless() { nextIsEndless_ = true; }

private:
  struct Message {
    std::string text;
    TimePoint readyAt;
  };

  std::deque<Message> messages_;
  std::size_t bytes_ = 0;
  Duration delay_{};
  bool silent_ = false;
  bool nextIsEndless_ = false;
  std::optional<TimePoint> nextPiece_; ///< of the answer without end
};

} // namespace portico::simulator

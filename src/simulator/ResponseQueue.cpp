#include "simulator/ResponseQueue.h"

#include <algorithm>
#include <utility>

namespace portico::simulator {
namespace {

// About 16 MB/s: fast enough to fill any buffer, slow enough that a reader who polls gets to do other things.
constexpr std::size_t kPieceBytes = 16384;
constexpr auto kPieceInterval = std::chrono::milliseconds(1);

} // namespace

void ResponseQueue::Push(std::string message, TimePoint now) {
  if (silent_ || nextPiece_) return; // behind an answer without end nothing can ever be read
  TimePoint readyAt = now + std::exchange(delay_, Duration::zero());
  if (!messages_.empty()) readyAt = std::max(readyAt, messages_.back().readyAt);
  if (std::exchange(nextIsEndless_, false)) {
    nextPiece_ = readyAt;
  } else {
    message += '\n';
  }
  bytes_ += message.size();
  messages_.push_back({std::move(message), readyAt});
}

std::optional<std::string> ResponseQueue::Pop(TimePoint now) {
  const auto ready = NextReady();
  if (!ready || *ready > now) return std::nullopt;
  if (messages_.empty()) {
    nextPiece_ = now + kPieceInterval;
    return std::string(kPieceBytes, '7');
  }
  std::string message = std::move(messages_.front().text);
  messages_.pop_front();
  bytes_ -= message.size();
  return message;
}

std::optional<TimePoint> ResponseQueue::NextReady() const {
  return messages_.empty() ? nextPiece_ : messages_.front().readyAt;
}

void ResponseQueue::Clear() {
  messages_.clear();
  bytes_ = 0;
}

} // namespace portico::simulator

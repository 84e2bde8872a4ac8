#include "simulator/status/ResponseQueue.h"

#include <algorithm>
#include <utility>

namespace portico::simulator {
namespace {

// About 16 MB/s: fast enough to fill any buffer, slow enough that a reader who polls gets to do other things.
constexpr std::size_t PieceBytes = 16384;
constexpr auto PieceInterval = std::chrono::milliseconds(1);

} // namespace

void ResponseQueue::Push(std::string message, TimePoint readyAt, bool endless, AnswerFault fault) {
  if (m_nextPiece) return; // behind an answer without end nothing can ever be read
  if (!m_messages.empty()) readyAt = std::max(readyAt, m_messages.back().ReadyAt);
  if (endless) {
    m_nextPiece = readyAt;
  } else {
    message += '\n';
  }
  m_bytes += message.size();
  ++m_count;
  m_messages.push_back({std::move(message), readyAt, fault});
}

std::optional<std::string> ResponseQueue::Pop(TimePoint now) {
  const auto ready = NextReady();
  if (!ready || *ready > now) return std::nullopt;
  if (m_messages.empty()) {
    m_nextPiece = now + PieceInterval;
    m_lastFault = AnswerFault::None;
    return std::string(PieceBytes, '7');
  }
  std::string message = std::move(m_messages.front().Text);
  m_lastFault = m_messages.front().Fault;
  m_messages.pop_front();
  m_bytes -= message.size();
  return message;
}

std::optional<TimePoint> ResponseQueue::NextReady() const {
  return m_messages.empty() ? m_nextPiece : m_messages.front().ReadyAt;
}

void ResponseQueue::Clear() {
  m_messages.clear();
  m_bytes = 0;
}

} // namespace portico::simulator

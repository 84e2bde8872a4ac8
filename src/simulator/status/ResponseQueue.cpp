#include "simulator/status/ResponseQueue.h"

#include <algorithm>
#include <utility>

namespace portico::simulator {
namespace {

// About 16 MB/s: fast enough to fill any buffer, slow enough that a reader who polls gets to do other things.
constexpr std::size_t PieceBytes = 16384;
constexpr auto PieceInterval = std::chrono::milliseconds(1);

constexpr std::uint64_t LongPieceBytes = 65536;
constexpr std::uint64_t Period = 251;

char ByteAt(std::uint64_t position) { return static_cast<char>(position % Period); }

} // namespace

void ResponseQueue::Push(std::string message, TimePoint readyAt, bool endless, AnswerFault fault) {
  if (m_nextPiece) return; // behind an answer without end nothing can ever be read
  if (!endless) message += '\n';
  Add({.Text = std::move(message), .ReadyAt = readyAt, .Fault = fault});
  if (endless) m_nextPiece = m_messages.back().ReadyAt;
}

void ResponseQueue::PushLong(std::string message, std::uint64_t more, TimePoint readyAt, AnswerFault fault) {
  if (m_nextPiece) return;
  const bool isHalf = fault == AnswerFault::Half;
  Add({.Text = std::move(message),
       .ReadyAt = readyAt,
       .Fault = isHalf ? AnswerFault::None : fault,
       .More = isHalf ? more / 2 : more,
       .Ends = !isHalf});
}

void ResponseQueue::Add(Message message) {
  if (!m_messages.empty()) message.ReadyAt = std::max(message.ReadyAt, m_messages.back().ReadyAt);
  m_bytes += message.Text.size();
  ++m_count;
  m_messages.push_back(std::move(message));
}

std::string ResponseQueue::NextPiece(Message& message) {
  std::uint64_t end = std::min(message.More, message.Position + LongPieceBytes);
  if (end < message.More && ByteAt(end - 1) == '\n') --end;
  std::string piece;
  piece.reserve(end - message.Position + 1);
  for (std::uint64_t i = message.Position; i < end; ++i) piece += ByteAt(i);
  message.Position = end;
  if (end == message.More && message.Ends) piece += '\n';
  return piece;
}

std::optional<std::string> ResponseQueue::Pop(TimePoint now) {
  const auto ready = NextReady();
  if (!ready || *ready > now) return std::nullopt;
  if (m_messages.empty()) {
    m_nextPiece = now + PieceInterval;
    m_lastFault = AnswerFault::None;
    return std::string(PieceBytes, '7');
  }
  Message& first = m_messages.front();
  m_lastFault = std::exchange(first.Fault, AnswerFault::None);
  const bool isBegun = first.Text.empty();
  std::string piece = isBegun ? NextPiece(first) : std::exchange(first.Text, {});
  if (!isBegun) m_bytes -= piece.size();
  if (first.Position == first.More) m_messages.pop_front();
  return piece;
}

std::optional<TimePoint> ResponseQueue::NextReady() const {
  return m_messages.empty() ? m_nextPiece : m_messages.front().ReadyAt;
}

void ResponseQueue::Clear() {
  m_messages.clear();
  m_bytes = 0;
}

} // namespace portico::simulator

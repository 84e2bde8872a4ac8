#include "simulator/hislip/HislipRequests.h"

#include "wire/HislipMessage.h"

#include <algorithm>

namespace portico::simulator {
namespace {

using namespace wire;

constexpr auto PatienceWithTheOtherConnection = std::chrono::milliseconds(20);

/// The control code of AsyncLock.
constexpr std::uint8_t LockRelease = 0;
constexpr std::uint8_t LockRequest = 1;

/// The control code of its response.
enum class LockOutcome : std::uint8_t { Failed = 0, Success = 1, SharedReleased = 2, Error = 3 };

std::string LockResponse(LockOutcome outcome) {
  return HislipMessage(HislipType::AsyncLockResponse, static_cast<std::uint8_t>(outcome), 0);
}

std::string UnknownControlCode(const HislipHeader& header) {
  return HislipMessage(HislipType::Error, static_cast<std::uint8_t>(HislipError::UnknownControlCode), 0,
                       "there is no control code " + std::to_string(header.Control) + " here");
}

/// Whether the parameter is the id of the last message that was sent.
bool NamesMessage(const HislipHeader& header) {
  return header.Type == HislipType::AsyncStatusQuery || header.Type == HislipType::AsyncRemoteLocalControl ||
         (header.Type == HislipType::AsyncLock && header.Control == LockRelease);
}

} // namespace

bool HislipRequests::Knows(HislipType type) {
  return type == HislipType::AsyncLock || type == HislipType::AsyncLockInfo || type == HislipType::AsyncStatusQuery ||
         type == HislipType::AsyncRemoteLocalControl || type == HislipType::AsyncDeviceClear;
}

void HislipRequests::Take(const HislipPiece& piece, TimePoint now) {
  // A message that comes on the other connection must not find this still to be told.
  const bool delivered = (piece.Header.Control & HislipControl::ResponseDelivered) != 0;
  if (piece.Header.Type == HislipType::AsyncStatusQuery && delivered) m_dialogue.Delivered();
  m_requests.push_back({piece.Header, std::string(piece.Payload), now + PatienceWithTheOtherConnection});
}

void HislipRequests::Collect(std::string& output, TimePoint now) {
  if (const auto id = m_dialogue.TakeInterruption()) output += HislipMessage(HislipType::AsyncInterrupted, 0, *id);
  while (!m_requests.empty() && Due(m_requests.front(), now)) {
    output += Respond(m_requests.front(), now);
    m_requests.pop_front();
  }
  if (!m_awaitedLock) return;
  if (m_locks.Request(m_session, m_awaitedLock->Key) == HislipLocks::Answer::Granted) {
    output += LockResponse(LockOutcome::Success);
  } else if (now >= m_awaitedLock->Deadline) {
    output += LockResponse(LockOutcome::Failed);
  } else {
    return;
  }
  m_awaitedLock.reset();
}

bool HislipRequests::Due(const Request& request, TimePoint now) const {
  return !NamesMessage(request.Header) || m_dialogue.HasReceived(request.Header.Parameter) || now >= request.Deadline;
}

std::string HislipRequests::Respond(const Request& request, TimePoint now) {
  const std::uint8_t control = request.Header.Control;
  switch (request.Header.Type) {
  case HislipType::AsyncLock:
    if (control > LockRequest) return UnknownControlCode(request.Header);
    return control == LockRequest ? RespondToLock(request, now) : RespondToRelease();
  case HislipType::AsyncLockInfo:
    return HislipMessage(HislipType::AsyncLockInfoResponse, m_locks.HeldExclusively() ? 1 : 0,
                         static_cast<std::uint32_t>(m_locks.Holders()));
  case HislipType::AsyncStatusQuery:
    if (control > HislipControl::ResponseDelivered) return UnknownControlCode(request.Header);
    return HislipMessage(HislipType::AsyncStatusResponse, m_dialogue.StatusByte(now), 0);
  case HislipType::AsyncRemoteLocalControl:
    if (control > HislipControl::GoToLocal) return UnknownControlCode(request.Header);
    return HislipMessage(HislipType::AsyncRemoteLocalResponse);
  default:
    m_dialogue.BeginClear(now);
    return HislipMessage(HislipType::AsyncDeviceClearAcknowledge);
  }
}

std::string HislipRequests::RespondToLock(const Request& request, TimePoint now) {
  if (m_faults.LocksRefused) return LockResponse(LockOutcome::Failed);
  if (m_awaitedLock) return LockResponse(LockOutcome::Error);
  switch (m_locks.Request(m_session, request.Text)) {
  case HislipLocks::Answer::Granted:
    return LockResponse(LockOutcome::Success);
  case HislipLocks::Answer::Refused:
    return LockResponse(LockOutcome::Error);
  case HislipLocks::Answer::Busy:
    break;
  }
  // Its answer comes with the lock, or when the time is over.
  m_awaitedLock = {request.Text, now + std::chrono::milliseconds(request.Header.Parameter)};
  return {};
}

std::string HislipRequests::RespondToRelease() {
  switch (m_locks.Release(m_session)) {
  case HislipLocks::Released::Exclusive:
    return LockResponse(LockOutcome::Success);
  case HislipLocks::Released::Shared:
    return LockResponse(LockOutcome::SharedReleased);
  case HislipLocks::Released::Nothing:
    break;
  }
  return LockResponse(LockOutcome::Error);
}

std::optional<TimePoint> HislipRequests::NextEvent() const {
  if (m_dialogue.Interrupted()) return TimePoint{};
  std::optional<TimePoint> next;
  if (!m_requests.empty()) {
    next = Due(m_requests.front(), TimePoint{}) ? TimePoint{} : m_requests.front().Deadline;
  }
  if (m_awaitedLock) {
    const TimePoint lock = LockReady() ? TimePoint{} : m_awaitedLock->Deadline;
    next = next ? std::min(*next, lock) : lock;
  }
  return next;
}

} // namespace portico::simulator

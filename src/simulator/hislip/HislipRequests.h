#pragma once

#include "simulator/hislip/HislipDialogue.h"
#include "simulator/hislip/HislipLocks.h"
#include "wire/HislipReader.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>

namespace portico::simulator {

/// What one HiSLIP session asks on its asynchronous connection: locks, the status byte, local control, device clear.
///
/// The two connections of a session race. A request that names the last message sent waits until that has come on the
/// other connection, but not for long: there are clients that name the message they will send next.
class HislipRequests {
public:
  /// All must outlive this; `session` is the number that the locks know it by.
  HislipRequests(HislipDialogue& dialogue, HislipLocks& locks, const Misbehaviour& faults, std::uint16_t session)
      : m_dialogue(dialogue), m_locks(locks), m_faults(faults), m_session(session) {}

  /// Whether messages of the type are requests.
  static bool Knows(wire::HislipType type);
  void Take(const wire::HislipPiece& piece, TimePoint now);
  /// Appends the responses that are due.
  void Collect(std::string& output, TimePoint now);
  std::optional<TimePoint> NextEvent() const;
  bool AcceptsInput() const { return m_requests.size() < MostRequests; }

private:
  static constexpr std::size_t MostRequests = 1024;

  struct Request {
    wire::HislipHeader Header;
    std::string Text;
    TimePoint Deadline; ///< until which the message that it names may come
  };
  struct AwaitedLock {
    std::string Key;
    TimePoint Deadline;
  };

  bool Due(const Request& request, TimePoint now) const;
  std::string Respond(const Request& request, TimePoint now);
  std::string RespondToLock(const Request& request, TimePoint now);
  std::string RespondToRelease();
  bool LockReady() const { return m_locks.Ready(m_session, m_awaitedLock->Key); }

  HislipDialogue& m_dialogue;
  HislipLocks& m_locks;
  const Misbehaviour& m_faults;
  const std::uint16_t m_session;
  std::deque<Request> m_requests;
  std::optional<AwaitedLock> m_awaitedLock;
};

} // namespace portico::simulator

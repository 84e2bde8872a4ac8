#pragma once

#include "simulator/hislip/HislipDialogue.h"
#include "simulator/hislip/HislipLocks.h"
#include "simulator/hislip/HislipRequests.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace portico::simulator {

/// What the two connections of one client share. It is over as soon as one of them is.
struct HislipSession {
  HislipSession(std::unique_ptr<IMessageConnection> connection, Misbehaviour& faults, HislipLocks& locks,
                std::uint16_t number)
      : Number(number), Dialogue(std::move(connection), faults), Requests(Dialogue, locks, faults, number) {}

  const std::uint16_t Number;
  HislipDialogue Dialogue;
  HislipRequests Requests;
  bool HasAsynchronous = false; ///< the second connection has come
  bool Over = false;
};

/// The device as HiSLIP's clients find it: its sessions and its locks. The connections share it.
class HislipServer {
public:
  /// The one device that clients may name.
  static constexpr std::string_view SubAddress = "hislip0";
  static constexpr std::size_t MostSessions = 64;

  explicit HislipServer(std::shared_ptr<IMessageInstrument> instrument) : m_instrument(std::move(instrument)) {}

  /// A session for a client that has just come; a null pointer if there are too many.
  std::shared_ptr<HislipSession> Begin();
  /// The session that waits for its second connection by that number; a null pointer if there is none.
  std::shared_ptr<HislipSession> Join(std::uint32_t number);
  /// One of its connections is over.
  void End(HislipSession& session);

  bool Admits(const HislipSession& session) const { return m_locks.Admits(session.Number); }

private:
  const std::shared_ptr<IMessageInstrument> m_instrument;
  HislipLocks m_locks;
  std::map<std::uint16_t, std::shared_ptr<HislipSession>> m_sessions;
  std::uint16_t m_lastNumber = 0;
};

} // namespace portico::simulator

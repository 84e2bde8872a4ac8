#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace portico::simulator {

/// Who has the device for itself, or shares it with others that know the same key. Sessions are told apart by their
/// numbers.
class HislipLocks {
public:
  enum class Answer { Granted, Busy, Refused };
  enum class Released { Nothing, Exclusive, Shared };

  /// Locks for a session: exclusively if the key is empty, else together with those who give the same key. Busy while
  /// others are in the way; refused to who has such a lock already.
  Answer Request(std::uint16_t session, std::string_view key);
  /// Whether a request would not be answered by Busy.
  bool Ready(std::uint16_t session, std::string_view key) const;
  /// The exclusive lock first, if the session has both.
  Released Release(std::uint16_t session);
  /// The session is over.
  void Forget(std::uint16_t session);

  /// Whether the device listens to the session.
  bool Admits(std::uint16_t session) const;
  bool HeldExclusively() const { return m_exclusive.has_value(); }
  /// How many sessions have a lock.
  std::size_t Holders() const;

private:
  bool Shares(std::uint16_t session) const { return m_sharing.contains(session); }

  std::optional<std::uint16_t> m_exclusive;
  std::set<std::uint16_t> m_sharing;
  std::string m_key; ///< of those
};

} // namespace portico::simulator

#pragma once

#include "simulator/connection/IMessageConnection.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace portico::simulator {

/// A client's link to the device: its connection, and the answer that is being read.
class Vxi11Link {
public:
  explicit Vxi11Link(std::unique_ptr<IMessageConnection> connection) : m_connection(std::move(connection)) {}

  IMessageConnection& Connection() const { return *m_connection; }

  /// What is left of the answer that is being read, or the next one that is ready at `now`; empty if there is none.
  std::string_view Answer(TimePoint now);
  /// The first `count` bytes of it were read. Whether its end was among them.
  bool Drop(std::size_t count);
  /// Drops what was written and not carried out, and what was not read.
  void Clear(TimePoint now);

  bool MessageAvailable() const { return m_read < m_answer.size() || m_connection->MessageAvailable(); }
  /// Whether something is still to be carried out or to be read.
  bool Busy() const { return m_read < m_answer.size() || m_connection->Busy(); }

  /// A call on it waits, and is to give up.
  bool Waits = false;
  bool Aborted = false;

private:
  const std::unique_ptr<IMessageConnection> m_connection;
  std::string m_answer;
  bool m_ends = false;    ///< the answer ends with these bytes
  std::size_t m_read = 0; ///< of m_answer
};

/// The links that all clients of one server have to its instrument, and the lock of one of them.
class Vxi11Links {
public:
  static constexpr std::size_t Most = 256;

  explicit Vxi11Links(std::shared_ptr<IMessageInstrument> instrument) : m_instrument(std::move(instrument)) {}

  /// A new link's number; none if there are too many.
  std::optional<std::int32_t> Make();
  /// A null pointer if there is none of that number.
  Vxi11Link* Find(std::int32_t number);
  /// The link's lock goes with it.
  void Remove(std::int32_t number);

  /// Whether another link has the lock; for somebody without one, whether any has.
  bool LockedFor(std::optional<std::int32_t> number) const { return m_holder && m_holder != number; }
  /// False if the device lets nobody have a lock. It must not be locked for this link.
  bool Lock(std::int32_t number);
  /// False if the link does not have it.
  bool Unlock(std::int32_t number);

  /// Whether the answer that a link gave last is to bear another call's number, because the device misbehaves.
  bool TakesWrongNumber() { return m_instrument->Faults().Take(AnswerFault::Number); }

private:
  const std::shared_ptr<IMessageInstrument> m_instrument;
  std::map<std::int32_t, Vxi11Link> m_links;
  std::int32_t m_last = 0;
  std::optional<std::int32_t> m_holder;
};

} // namespace portico::simulator

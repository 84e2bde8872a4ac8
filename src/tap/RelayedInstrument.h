#pragma once

#include "simulator/connection/IMessageConnection.h"
#include "tap/Place.h"
#include "tap/RelayedConnection.h"

#include <memory>

namespace portico::tap {

/// An instrument behind a bridge, as servers connect to it whose protocols mark the ends of messages: to one client at
/// a time.
class RelayedInstrument final : public simulator::IMessageInstrument {
public:
  /// The line of `place` leads to the bridge. `place` must outlive it and its connections.
  explicit RelayedInstrument(Place& place) : m_place(place) {}

  std::unique_ptr<simulator::IMessageConnection> Connect() override;
  /// It has no faults but its own.
  simulator::Misbehaviour& Faults() override { return m_none; }

private:
  Place& m_place;
  simulator::Misbehaviour m_none;
  std::weak_ptr<Relay> m_last;
};

} // namespace portico::tap

#pragma once

#include "simulator/connection/StreamConnection.h"

#include <memory>

namespace portico::simulator {

/// A simulated instrument, for servers of protocols that mark where messages end.
class StreamInstrument final : public IMessageInstrument {
public:
  /// `instrument` must outlive it.
  explicit StreamInstrument(Instrument& instrument) : m_instrument(instrument) {}

  std::unique_ptr<IMessageConnection> Connect() override { return std::make_unique<StreamConnection>(m_instrument); }
  Misbehaviour& Faults() override { return m_instrument.Faults(); }

private:
  Instrument& m_instrument;
};

} // namespace portico::simulator

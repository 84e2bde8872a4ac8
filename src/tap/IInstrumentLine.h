#pragma once

#include "server/IServedConnection.h"

#include <cstdint>
#include <memory>

namespace portico::tap {

/// The way to the instrument.
class IInstrumentLine {
public:
  virtual ~IInstrumentLine() = default;

  /// Makes a connection, over which `end` is served from then on. False if there is none, which the user has been told.
  virtual bool Connect(std::unique_ptr<server::IServedConnection> end) = 0;
  /// A further one to the same instrument, at another port of it unless that is 0.
  virtual bool ConnectFurther(std::unique_ptr<server::IServedConnection> end, std::uint16_t port) = 0;
};

} // namespace portico::tap

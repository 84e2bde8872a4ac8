#pragma once

#include "framework/Event.h"
#include "platform/IDriverObserver.h"

namespace portico::terminal {

/// Hands on what the driver tells. It is there before the driver, and whoever listens may come later.
class DriverNews final : public IDriverObserver {
public:
  /// With the instrument's name.
  Event<const std::string&> ConnectionRenewed;

  void Reconnected(const std::string& resourceName) override { ConnectionRenewed(resourceName); }
};

} // namespace portico::terminal

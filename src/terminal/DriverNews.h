#pragma once

#include "framework/objects/Event.h"
#include "platform/IDriverObserver.h"

namespace portico::terminal {

/// Hands on what the driver tells. It is there before the driver, and whoever listens may come later.
class DriverNews final : public IDriverObserver {
public:
  /// So does whoever else waits.
  Event<> AboutToWait;
  /// With the instrument's name.
  Event<const std::string&> ConnectionRenewed;
  /// With its length in bytes. An answer that fills the channel's buffer counts as none.
  Event<std::size_t> AnswerDropped;

  void Waits() override { AboutToWait(); }
  void Reconnected(const std::string& resourceName) override { ConnectionRenewed(resourceName); }
  void AnswerFilledBuffer(const std::string& /*resourceName*/, std::size_t length) override { AnswerDropped(length); }
};

} // namespace portico::terminal

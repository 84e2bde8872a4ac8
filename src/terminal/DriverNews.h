#pragma once

#include "framework/objects/Event.h"
#include "platform/IDriverObserver.h"

namespace portico::terminal {

/// Hands on what the driver tells. It is there before the driver, and whoever listens may come later.
class DriverNews final : public IDriverObserver {
public:
  /// So does whoever else waits.
  Event<> AboutToWait;
  /// What the driver did to get along with the instrument again, behind its name.
  Event<const std::string&> Recovered;
  /// With its length in bytes. An answer that fills the channel's buffer counts as none.
  Event<std::size_t> AnswerDropped;

  void Waits() override { AboutToWait(); }
  void Reconnected(const std::string& resourceName) override {
    Recovered(resourceName + ": the connection was made anew; unread answers are lost");
  }
  void Cleared(const std::string& resourceName) override {
    Recovered(resourceName + ": cleared; unread answers are lost");
  }
  void Restored(const std::string& resourceName) override {
    Recovered(resourceName + ": the instrument had closed the connection; it was made anew");
  }
  void AnswerFilledBuffer(const std::string& /*resourceName*/, std::size_t length) override { AnswerDropped(length); }
};

} // namespace portico::terminal

#pragma once

#include "drivers/session/InstrumentDriver.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace portico::test {

/// Keeps what the driver reports.
class RecordingObserver final : public IDriverObserver {
public:
  void Waits() override {
    if (onWait) onWait();
  }
  void Reconnected(const std::string& resourceName) override { names.push_back(resourceName); }
  void AnswerFilledBuffer(const std::string& resourceName, std::size_t length) override {
    filled.push_back(resourceName + ", " + std::to_string(length));
  }
  void Cleared(const std::string& resourceName) override { cleared.push_back(resourceName); }
  void Restored(const std::string& resourceName) override { restored.push_back(resourceName); }

  std::function<void()> onWait;
  std::vector<std::string> names;
  std::vector<std::string> cleared;
  std::vector<std::string> restored;
  /// "NAME, LENGTH" of each answer that filled a buffer.
  std::vector<std::string> filled;
};

} // namespace portico::test

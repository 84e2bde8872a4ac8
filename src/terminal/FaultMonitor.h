#pragma once

#include "framework/Event.h"
#include "framework/IPublisher.h"
#include "framework/IReport.h"

#include <optional>
#include <string>
#include <vector>

namespace portico::terminal {

/// Watches the reports of one instruction for what went wrong at the instrument or the driver.
class FaultMonitor final : public ISubscriber {
public:
  StringView ClassName() const override { return u"FaultMonitor"; }
  void Update(const Ref<IObject>& Subject) override;

  /// An instruction has come to its end.
  Event<> Completed;

  /// Forgets the instruction before.
  void Begin();

  /// The driver's texts, in order.
  const std::vector<String>& DriverFailures() const { return m_driverFailures; }
  /// What followed the last write: with error checking on, the answer of the error query; none without a read.
  const std::optional<String>& LastAnswer() const { return m_lastAnswer; }

private:
  std::vector<String> m_driverFailures;
  std::optional<String> m_lastAnswer;
};

/// An answer of the error query that reports an error: its leading integer is not 0.
bool ReportsError(StringView answer);

} // namespace portico::terminal

#pragma once

#include "document/reports/FaultCollector.h"
#include "views/completion/KnownCommands.h"

namespace portico {

/// Hears in the reports which instrument is there, and which lines it has accepted: those that the driver has sent
/// without a failure and after which the error query was answered with 0. Needs `gConfiguration`.
class AcceptedLines final : public ISubscriber {
public:
  explicit AcceptedLines(const Ref<KnownCommands>& known);
  StringView ClassName() const override { return u"AcceptedLines"; }
  void Update(const Ref<IObject>& Subject) override;

private:
  void Judge();

  Ref<KnownCommands> m_known;
  FaultCollector m_faults;
  String m_line; // the line that is being run
};

} // namespace portico

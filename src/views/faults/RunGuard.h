#pragma once

#include "document/reports/FaultCollector.h"
#include "framework/objects/Creator.h"

namespace portico {

/// Stops a run, as Stop does, behind the first instruction at which the driver failed or the instrument reported an
/// error: so a dead cable does not eat a script. Off unless the user has switched it on, which the settings store
/// keeps. Subscribed by the window, behind what shows a report. Needs `gSettingsStore`, `gConfiguration`, `gMainForm`.
class RunGuard final : public ISubscriber {
public:
  RunGuard();
  StringView ClassName() const override { return u"RunGuard"; }

  bool IsOn() const { return m_isOn; }
  void IsOn(bool newValue);
  void Update(const Ref<IObject>& Subject) override { m_faults.Update(Subject); }

private:
  void Judge();

  FaultCollector m_faults;
  bool m_isOn;
};

namespace Class {

inline constexpr ClassKey<RunGuard> RunGuard{u"RunGuard"};

} // namespace Class

/// The one guard, which is there from the start.
extern const CreatorRow CtorRunGuard;

} // namespace portico

#include "views/faults/RunGuard.h"

#include "framework/shared/Application.h"
#include "framework/shared/ConfigurationItems.h"
#include "framework/shared/IMainWindow.h"
#include "platform/ISettingsStore.h"

namespace portico {
namespace {

const String Section = u"Data";
const String Key = u"StopAtErrors";

} // namespace

RunGuard::RunGuard()
    : m_isOn(gSettingsStore->GetSetting(ApplicationTitle, Section, Key, String(ItemText::Off)) == ItemText::On) {
  m_faults.Completed.Connect([this] { Judge(); });
}

void RunGuard::IsOn(bool newValue) {
  m_isOn = newValue;
  gSettingsStore->SaveSetting(ApplicationTitle, Section, Key, String(newValue ? ItemText::On : ItemText::Off));
}

void RunGuard::Judge() {
  const bool isFaulty = !m_faults.DriverFailures().empty() || m_faults.ReportedError();
  m_faults.Begin();
  if (m_isOn && isFaulty && gMainForm->Executing()) gMainForm->StopRequested(true);
}

const CreatorRow CtorRunGuard = {
    .Name = u"CtorRunGuard",
    .Specification = Class::RunGuard,
    .ParamCount = Class::RunGuard.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> { return New<RunGuard>(); },
    .Singleton = true,
};

} // namespace portico

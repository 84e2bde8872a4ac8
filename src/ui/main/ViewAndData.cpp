#include "ui/main/ViewAndData.h"

#include "framework/shared/IConfiguration.h"
#include "framework/shared/IMainWindow.h"
#include "instructions/InstrumentAccess.h"
#include "ui/base/KeptTimeout.h"
#include "ui/base/ViewMenu.h"
#include "ui/main/DataMenu.h"

namespace portico {

ViewAndData::ViewAndData(IForm& form)
    : m_guard(Create(Class::RunGuard)),
      mnuStopAtErrors(FindControl<IMenuItem>(form, u"mnuStopAtErrors")),
      mnuClearDevice(FindControl<IMenuItem>(form, u"mnuClearDevice")),
      mnuGoToLocal(FindControl<IMenuItem>(form, u"mnuGoToLocal")) {
  ConnectCommands(form, ViewItems);
  ConnectCommands(form, DataItems);
  Create(Class::CmdSubscriptionAgent)->Subscribe(m_guard);
  // A driver that takes none has refused it in words when it was set.
  if (const auto timeout = KeptTimeout::Read()) InstrumentAccess::SetTimeout(*timeout);
}

void ViewAndData::Update() const {
  mnuStopAtErrors.Checked(m_guard->IsOn());
  const bool isIdle = gConfiguration->IsTrue(Item::InstrumentOpened) && !gMainForm->Executing();
  mnuClearDevice.Enabled(isIdle);
  mnuGoToLocal.Enabled(isIdle);
}

} // namespace portico

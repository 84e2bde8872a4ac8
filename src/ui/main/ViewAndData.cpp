#include "ui/main/ViewAndData.h"

#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "framework/shared/IMainWindow.h"
#include "instructions/InstrumentAccess.h"
#include "ui/base/KeptTimeout.h"
#include "ui/base/ViewMenu.h"
#include "ui/main/DataMenu.h"
#include "views/FaultMarks.h"

namespace portico {

ViewAndData::ViewAndData(const Ref<IForm>& form)
    : m_form(form),
      m_guard(Create(Class::RunGuard)),
      m_errors(New<ErrorMarks>(ShareControl<IRichTextControl>(form, u"txtPast"))),
      m_errorsChanged(m_errors->Changed.Connect([this] { Update(); })),
      mnuStopAtErrors(FindControl<IMenuItem>(*form, u"mnuStopAtErrors")),
      mnuClearDevice(FindControl<IMenuItem>(*form, u"mnuClearDevice")),
      mnuGoToLocal(FindControl<IMenuItem>(*form, u"mnuGoToLocal")) {
  ConnectCommands(*form, ViewItems);
  ConnectCommands(*form, DataItems);
  ConnectCommands(*form, ErrorItems, [this] { return modGlobals::VarArray(m_errors, m_form); });
  const auto reports = Create(Class::CmdSubscriptionAgent);
  reports->Subscribe(m_guard);
  reports->Subscribe(New<FaultMarks>(m_errors));
  // A driver that takes none has refused it in words when it was set.
  if (const auto timeout = KeptTimeout::Read()) InstrumentAccess::SetTimeout(*timeout);
}

ViewAndData::~ViewAndData() { m_errors->Changed.Disconnect(m_errorsChanged); }

void ViewAndData::Update() const {
  mnuStopAtErrors.Checked(m_guard->IsOn());
  const bool isIdle = gConfiguration->IsTrue(Item::InstrumentOpened) && !gMainForm->Executing();
  mnuClearDevice.Enabled(isIdle);
  mnuGoToLocal.Enabled(isIdle);
  EnableItems(*m_form, ErrorItems, !m_errors->All().empty());
}

} // namespace portico

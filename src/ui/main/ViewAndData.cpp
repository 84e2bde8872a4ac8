#include "ui/main/ViewAndData.h"

#include "ui/base/ViewMenu.h"
#include "ui/main/DataMenu.h"

namespace portico {

ViewAndData::ViewAndData(IForm& form)
    : m_guard(Create(Class::RunGuard)), mnuStopAtErrors(FindControl<IMenuItem>(form, u"mnuStopAtErrors")) {
  ConnectCommands(form, ViewItems);
  ConnectCommands(form, DataItems);
  Create(Class::CmdSubscriptionAgent)->Subscribe(m_guard);
}

void ViewAndData::Update() const { mnuStopAtErrors.Checked(m_guard->IsOn()); }

} // namespace portico

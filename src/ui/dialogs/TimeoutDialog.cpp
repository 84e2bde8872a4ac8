#include "ui/dialogs/TimeoutDialog.h"

#include "framework/shared/Application.h"
#include "platform/IDesktop.h"
#include "platform/IDialogControls.h"
#include "platform/IExtendedDriver.h"
#include "ui/base/KeptTimeout.h"
#include "ui/base/Wired.h"
#include "ui/dialogs/DialogDesigns.h"

namespace portico {

TimeoutDialog::TimeoutDialog() : DialogForm(TimeoutDialogDesign) {}

void TimeoutDialog::Form_Initialize() {
  On(Control<ICommandButton>(u"cmdOK").Click(), u"TimeoutDialog.cmdOK_Click", [this] { Accept(); });
  On(Control<ICommandButton>(u"cmdCancel").Click(), u"TimeoutDialog.cmdCancel_Click", [this] { Unload(); });
}

void TimeoutDialog::Form_Load() {
  Control<ITextBox>(u"txtTimeout").Text(ToText(std::int64_t{KeptTimeout::Read().value_or(UsualTimeout)}));
}

void TimeoutDialog::Accept() {
  m_milliseconds = KeptTimeout::FromText(Control<ITextBox>(u"txtTimeout").Text());
  if (m_milliseconds) return Unload();
  Wired(gMessageBox).Show(u"Use 1 to 3600000 milliseconds.", ApplicationTitle);
}

} // namespace portico

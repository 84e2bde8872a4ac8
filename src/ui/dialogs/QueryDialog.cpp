#include "ui/dialogs/QueryDialog.h"

#include "framework/shared/Application.h"
#include "platform/IDesktop.h"
#include "platform/IDialogControls.h"
#include "ui/base/ResourceStrings.h"
#include "ui/base/Wired.h"
#include "ui/dialogs/DialogDesigns.h"

namespace portico {

QueryDialog::QueryDialog() : DialogForm(QueryDialogDesign) {}

void QueryDialog::Form_Initialize() {
  On(Control<ICommandButton>(u"cmdOK").Click(), u"QueryDialog.cmdOK_Click", [this] { Accept(); });
  On(Control<ICommandButton>(u"cmdCancel").Click(), u"QueryDialog.cmdCancel_Click", [this] { Unload(); });
}

void QueryDialog::Form_Load() { Control<ITextBox>(u"txtQuery").Text(m_offered); }

void QueryDialog::Accept() {
  const String text = Control<ITextBox>(u"txtQuery").Text();
  const StringView query = Trim(text);
  if (!query.empty() && !FindOutsideCodePage(query)) {
    m_query = query;
    return Unload();
  }
  Wired(gMessageBox).Show(LoadResString(query.empty() ? 10700 : 10701), ApplicationTitle);
}

} // namespace portico

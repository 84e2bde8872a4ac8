#include "ui/dialogs/FileQuestions.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Application.h"
#include "platform/IDesktop.h"
#include "ui/base/Wired.h"

namespace portico {

Ref<frmSelectFile> MakeSelectDialog() {
  auto dialog = frmSelectFile::Make();
  HuntERR::Check(bool(dialog), ErrorNumber::CannotCreate, u"Cannot create a select-file dialog.");
  return dialog;
}

String AskForFile(const String& title, std::int32_t filters) {
  return MakeSelectDialog()->SelectedFileName(SelectToOpen, title, filters);
}

String AskWhereToSave(const String& title) {
  FileDialogSettings settings{
      .DialogTitle = title, .Filter = u"All (*.*)|*.*", .Flags = AskBeforeOverwriting, .CancelError = false};
  HuntERR::Check(bool(gCommonDialog), ErrorNumber::CannotCreate, u"Cannot create a dialog that saves.");
  gCommonDialog->ShowSave(settings);
  return settings.FileName;
}

bool AskToErase(const String& name) {
  return Wired(gMessageBox).Show(u"Do you want to erase " + name + u"?", ApplicationTitle, MessageBoxButtons::YesNo) ==
         MessageBoxAnswer::Yes;
}

} // namespace portico

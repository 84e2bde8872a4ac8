#include "ui/dialogs/DialogForm.h"

#include "framework/objects/modGlobals.h"
#include "platform/ICommonDialog.h"
#include "ui/base/ProgramConstants.h"
#include "ui/base/Wired.h"

namespace portico {

DialogForm::DialogForm(const FormDesign& design) : m_form(Wired(gForms).Load(design)) {
  m_form->Events().Unload.Connect([loaded = m_loaded] { *loaded = false; });
}

DialogForm::~DialogForm() {
  try {
    Unload();
  } catch (...) {
    SwallowInDestructor(u"DialogForm.Class_Terminate");
  }
}

void DialogForm::ShowModal(IForm* Owner) {
  Form_Load();
  m_form->ShowModal(Owner);
}

void DialogForm::Show(IForm* Owner) {
  Form_Load();
  m_form->Keep(Ref<IObject>(shared_from_this()));
  m_form->Owner(Owner);
  m_form->Show();
}

void DialogForm::Hide() {
  if (*m_loaded) m_form->Hide();
}

void DialogForm::Unload() {
  if (*m_loaded) m_form->Unload();
}

void DialogForm::Filed(StringView label, const std::function<void()>& handler) try { handler(); } catch (...) {
  StopHere(label);
  modGlobals::LogErrorReport();
}

void DialogForm::ShowHelp(StringView topic) {
  HelpSettings settings;
  settings.HelpCommand = HelpMacro;
  settings.HelpKey = u"AL(`" + String(topic) + u"',1)";
  settings.HelpFile = ApplicationHelpFile;
  gCommonDialog->ShowHelp(settings);
}

} // namespace portico

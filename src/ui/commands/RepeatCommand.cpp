#include "ui/commands/RepeatCommand.h"

#include "framework/shared/Application.h"
#include "framework/shared/UserCommand.h"
#include "platform/IDesktop.h"
#include "ui/base/CommandWindow.h"
#include "ui/base/IMainFormParts.h"
#include "ui/base/UserCommands.h"
#include "ui/base/Wired.h"
#include "ui/dialogs/RepeatDialog.h"

namespace portico {
namespace {

String Turns(std::uint64_t count) {
  return ToText(static_cast<std::int64_t>(count)) + (count == 1 ? u" turn" : u" turns");
}

void Tell(const RepeatedRun::Outcome& outcome) {
  if (!outcome.IsStopped && outcome.Skipped == 0) return;
  String text = Turns(outcome.Begun) + (outcome.Begun == 1 ? u" has begun." : u" have begun.");
  if (outcome.Skipped > 0) {
    text += u" " + Turns(outcome.Skipped) + (outcome.Skipped == 1 ? u" was" : u" were") +
            u" skipped, because the one in front was not over in time.";
  }
  Wired(gMessageBox).Show(text, ApplicationTitle);
}

class Repeat final : public UserCommand {
public:
  StringView ClassName() const override { return u"Repeat"; }
  void Initialize(const Ref<RepeatedRun>& run) {
    m_run = run;
    SetInitialized();
  }

private:
  void Act() override {
    if (!CommandWindow::TakesLines() || gMainFormParts->txtFuture()->TextLength() == 0) return;
    const auto lines = New<RepeatedLines>();
    lines->Copy(*gMainFormParts->txtFuture());
    const auto dialog = MakeDialog<RepeatDialog>(u"Failed to create the dialog box for repeating.");
    dialog->Lines(lines);
    dialog->Plan(m_run->Plan());
    dialog->ShowModal(&gMainFormParts->Form());
    // While the dialog was up the instrument may have been closed.
    if (dialog->Chosen() && CommandWindow::TakesLines()) Tell(m_run->Run(lines, *dialog->Chosen()));
  }

  Ref<RepeatedRun> m_run;
};

} // namespace

const CreatorRow CtorRepeat = {
    .Name = u"CtorRepeat",
    .Specification = Class::Repeat,
    .ParamCount = Class::Repeat.ParamCount,
    .Make = [](const Params& Parameters) -> Ref<IObject> {
      auto command = New<Repeat>();
      command->Initialize(Parameters[0].ToObject<RepeatedRun>());
      return command;
    },
};

} // namespace portico

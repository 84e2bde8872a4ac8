#include "ui/commands/DeviceCommands.h"

#include "framework/shared/Application.h"
#include "framework/shared/UserCommand.h"
#include "instructions/InstrumentAccess.h"
#include "platform/IDesktop.h"
#include "ui/base/IMainFormParts.h"
#include "ui/base/KeptTimeout.h"
#include "ui/base/UserCommands.h"
#include "ui/base/Wired.h"
#include "ui/dialogs/TimeoutDialog.h"

namespace portico {
namespace {

void TellFailure(const Ref<IResponse>& response) {
  if (response->ErrorCode() != 0) Wired(gMessageBox).Show(response->ErrorMessage(), ApplicationTitle);
}

class SetTimeout final : public PlainCommand {
public:
  StringView ClassName() const override { return u"SetTimeout"; }

private:
  void Act() override {
    const auto dialog = MakeDialog<TimeoutDialog>(u"Failed to create time-out dialog box.");
    dialog->ShowModal(&gMainFormParts->Form());
    const auto milliseconds = dialog->Milliseconds();
    if (!milliseconds) return;
    KeptTimeout::Save(*milliseconds);
    TellFailure(InstrumentAccess::SetTimeout(*milliseconds));
  }
};

class ClearDevice final : public PlainCommand {
public:
  StringView ClassName() const override { return u"ClearDevice"; }

private:
  void Act() override { TellFailure(InstrumentAccess::ClearDevice()); }
};

class GoToLocal final : public PlainCommand {
public:
  StringView ClassName() const override { return u"GoToLocal"; }

private:
  void Act() override { TellFailure(InstrumentAccess::GoToLocal()); }
};

} // namespace

const CreatorRow CtorSetTimeout = {
    .Name = u"CtorSetTimeout",
    .Specification = Class::SetTimeout,
    .ParamCount = Class::SetTimeout.ParamCount,
    .Make = MakePlainCommand<SetTimeout>,
};

const CreatorRow CtorClearDevice = {
    .Name = u"CtorClearDevice",
    .Specification = Class::ClearDevice,
    .ParamCount = Class::ClearDevice.ParamCount,
    .Make = MakePlainCommand<ClearDevice>,
};

const CreatorRow CtorGoToLocal = {
    .Name = u"CtorGoToLocal",
    .Specification = Class::GoToLocal,
    .ParamCount = Class::GoToLocal.ParamCount,
    .Make = MakePlainCommand<GoToLocal>,
};

} // namespace portico

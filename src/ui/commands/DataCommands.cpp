#include "ui/commands/DataCommands.h"

#include "framework/shared/IMainWindow.h"
#include "framework/shared/UserCommand.h"
#include "ui/base/UserCommands.h"
#include "views/faults/RunGuard.h"

namespace portico {
namespace {

class StopAtErrors final : public PlainCommand {
public:
  StringView ClassName() const override { return u"StopAtErrors"; }

private:
  void Act() override {
    const auto guard = Create(Class::RunGuard);
    guard->IsOn(!guard->IsOn());
    gMainForm->UpdateUI({}, {});
  }
};

} // namespace

const CreatorRow CtorStopAtErrors = {
    .Name = u"CtorStopAtErrors",
    .Specification = Class::StopAtErrors,
    .ParamCount = Class::StopAtErrors.ParamCount,
    .Make = MakePlainCommand<StopAtErrors>,
};

} // namespace portico

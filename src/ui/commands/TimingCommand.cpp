#include "ui/commands/TimingCommand.h"

#include "framework/shared/UserCommand.h"
#include "ui/base/IMainFormParts.h"
#include "ui/base/UserCommands.h"
#include "ui/dialogs/TimingWindow.h"

namespace portico {
namespace {

class ShowTimes final : public PlainCommand {
public:
  StringView ClassName() const override { return u"ShowTimes"; }

private:
  void Act() override { TimingWindow::Open(gMainFormParts->Form()); }
};

} // namespace

const CreatorRow CtorShowTimes = {
    .Name = u"CtorShowTimes",
    .Specification = Class::ShowTimes,
    .ParamCount = Class::ShowTimes.ParamCount,
    .Make = MakePlainCommand<ShowTimes>,
};

} // namespace portico

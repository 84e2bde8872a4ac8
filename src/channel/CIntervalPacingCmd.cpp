#include "channel/CIntervalPacingCmd.h"

#include "channel/CIntervalTimer.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"

namespace portico {

void CIntervalPacingCmd::Initialize(const Ref<ICommand>& InnerCommand, std::int32_t Interval,
                                    const Ref<IPublisher>& Publisher) try {
  HuntERR::Check(Interval >= 0, ErrorNumber::InvalidArgument,
                 u"Interval pacing command's interval must be greater than or equal to zero.");
  m_interval = Interval;
  SetUp(InnerCommand, Publisher);
} catch (...) {
  PassOn(u"CReadCmd.Initialize(InnerCommand)", {InnerCommand});
}

Ref<IResponse> CIntervalPacingCmd::Operate() { return Create(Class::IntervalTimer)->StartWhenDone(m_interval); }

const CreatorRow CtorIntervalPacingCmd = {
    .Name = u"CtorIntervalPacingCmd",
    .Specification = Class::IntervalPacingCommand,
    .ParamCount = Class::IntervalPacingCommand.ParamCount,
    .Make = [](const Params& Parameters) -> Ref<IObject> {
      auto command = New<CIntervalPacingCmd>();
      const std::int32_t interval = Create(Class::Configuration)->Milliseconds(Item::PacingInterval);
      command->Initialize(Parameters[0].ToObject<ICommand>(), interval, Create(Class::CmdSubscriptionAgent));
      return command;
    },
};

} // namespace portico

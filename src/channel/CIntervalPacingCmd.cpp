#include "channel/CIntervalPacingCmd.h"

#include "channel/CIntervalTimer.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/objects/modGlobals.h"
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

Ref<IResponse> CIntervalPacingCmd::Operate() {
  return Create<CIntervalTimer>(u"IntervalTimer", modGlobals::VarArray())->StartWhenDone(m_interval);
}

const CreatorRow CtorIntervalPacingCmd = {
    u"CtorIntervalPacingCmd", u"IntervalPacingCommand", 1, [](const Params& Parameters) -> Ref<IObject> {
      auto command = New<CIntervalPacingCmd>();
      const Value interval = Create<IConfiguration>(u"Configuration")->ItemValue(u"PacingInterval");
      command->Initialize(Parameters[0].ToObject<ICommand>(), interval.ToLong(),
                          Create<IPublisher>(u"CmdSubscriptionAgent"));
      return command;
    }};

} // namespace portico

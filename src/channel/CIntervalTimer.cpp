#include "channel/CIntervalTimer.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/CResponse.h"

namespace portico {

CIntervalTimer::CIntervalTimer() try : m_loop(gEventLoop) {
  if (!m_loop) RaiseUnsetReference();
  m_tmrCommandInterval = m_loop->MakeTimer();
  m_tmrCommandInterval->Timer().Connect([this] {
    m_tmrCommandInterval->Enabled(false);
    m_done = true;
  });
} catch (...) {
  FailConstruction(u"CIntervalTimer.Class_Initialize");
}

CIntervalTimer::~CIntervalTimer() { m_tmrCommandInterval->Enabled(false); }

Ref<IResponse> CIntervalTimer::StartWhenDone(std::int32_t Interval) try {
  m_loop->DoEvents();
  while (!m_done) m_loop->WaitForEvent();
  // An event that was processed just now may have started another interval.
  HuntERR::Check(m_done, ErrorNumber::InvalidArgument, u"Cannot start timer. Timer is still running.");
  m_done = false;
  m_tmrCommandInterval->Interval(Interval);
  m_tmrCommandInterval->Enabled(true);
  auto response = New<CResponse>();
  response->Initialize(0, u"Interval has elapsed."); // the interval that was waited for, not the one just started
  return response;
} catch (...) {
  PassOn(String(ClassName()).append(u".StartWhenDone(Interval)"), {Interval});
}

const CreatorRow CtorIntervalTimer = {
    .Name = u"CtorIntervalTimer",
    .Specification = Class::IntervalTimer,
    .ParamCount = Class::IntervalTimer.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> { return New<CIntervalTimer>(); },
    .FailureNumber = ErrorNumber::InvalidArgument,
    .FailureText = u"Interval timer is invalid.",
    .Singleton = true,
    .LabelName = u"CtorCloseCmd",
};

} // namespace portico

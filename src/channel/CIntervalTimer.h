#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "framework/shared/IResponse.h"
#include "platform/IEventLoop.h"

#include <memory>

namespace portico {

/// The one clock of interval pacing. It starts an interval when the one before has elapsed, so that the time which the
/// user spends between two instructions counts as rest.
class CIntervalTimer final : public IObject {
public:
  /// Idle, on the platform's event loop, which is kept alive.
  CIntervalTimer();
  ~CIntervalTimer() override;

  StringView ClassName() const override { return u"CIntervalTimer"; }

  /// Waits until no interval is running, then starts one of `Interval` milliseconds, 0 to 65535. Events are processed
  /// meanwhile. An interval of 0 never elapses: the next call then waits until the program is told to end.
  Ref<IResponse> StartWhenDone(std::int32_t Interval);

private:
  std::shared_ptr<IEventLoop> m_loop;
  std::unique_ptr<ITimer> m_tmrCommandInterval;
  bool m_done = true;
};

namespace Class {

/// The one clock.
inline constexpr ClassKey<CIntervalTimer> IntervalTimer{u"IntervalTimer"};

} // namespace Class

extern const CreatorRow CtorIntervalTimer;

} // namespace portico

#include "ui/main/DeferredRun.h"

#include <utility>

namespace portico {
namespace {

constexpr std::int32_t DeferralMilliseconds = 10;

} // namespace

DeferredRun::DeferredRun(Handlers handlers) : m_handlers(std::move(handlers)), tmrProcessCmd(gEventLoop->MakeTimer()) {
  tmrProcessCmd->Interval(DeferralMilliseconds);
  tmrProcessCmd->Timer().Connect([this] { tmrProcessCmd_Timer(); });
}

void DeferredRun::Request(bool& request) {
  tmrProcessCmd->Enabled(true);
  request = true;
}

void DeferredRun::tmrProcessCmd_Timer() {
  tmrProcessCmd->Enabled(false);
  // Until the next request all further firings would find nothing either, and wake the program for it.
  if (!StepRequested && !RunRequested && !RunToCursorRequested) return;
  if (StepRequested) {
    m_handlers.Step();
  } else if (RunRequested) {
    m_handlers.Run();
  } else if (RunToCursorRequested) {
    m_handlers.RunToCursor();
  }
  StepRequested = false;
  RunRequested = false;
  RunToCursorRequested = false;
  tmrProcessCmd->Enabled(true);
}

} // namespace portico

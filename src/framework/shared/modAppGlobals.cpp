#include "framework/shared/modAppGlobals.h"

#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IMainWindow.h"
#include "framework/shared/PointerShapes.h"

namespace portico::modAppGlobals {
namespace {

/// No creator is registered under "RunToCursor".
bool IsLongRunning(StringView cmdName) { return cmdName == u"RunToCursor" || cmdName == Class::Run.Specification; }

} // namespace

// Neither function uses a guard object: pointer and flag must stay as they are when the command fails.

void EventHandler(const String& cmdName, const Params& Parameters) try {
  const std::int32_t pointer = gMainForm->MousePointer();
  gMainForm->MousePointer(HourglassPointer);
  const auto command = Cast<ICommand>(gObjectFactory->CreateObject(cmdName, Parameters));
  command->Execute();
  gMainForm->MousePointer(pointer);
} catch (...) {
  PassOn(u"modAppGlobals.EventHandler(cmdName, Params)", {cmdName, Parameters});
}

void ExecutionEventHandler(const String& cmdName, const Params& Parameters) try {
  if (IsLongRunning(cmdName)) gMainForm->Executing(true);
  EventHandler(cmdName, Parameters);
  if (IsLongRunning(cmdName)) gMainForm->Executing(false);
} catch (...) {
  PassOn(u"modAppGlobals.ExecutionEventHandler(cmdName, Params)", {cmdName, Parameters});
}

} // namespace portico::modAppGlobals

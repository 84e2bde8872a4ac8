#include "platform/IEventLoop.h"
#include "platform/IInstrumentDriver.h"
#include "platform/ISettingsStore.h"

namespace portico {

std::shared_ptr<IEventLoop> gEventLoop;
std::shared_ptr<IInstrumentDriver> gInstrumentDriver;
std::shared_ptr<ISettingsStore> gSettingsStore;

} // namespace portico

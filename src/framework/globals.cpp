#include "framework/IConfiguration.h"
#include "framework/IMainWindow.h"
#include "framework/IObjectFactory.h"

namespace portico {

Ref<IConfiguration> gConfiguration;
Ref<IMainWindow> gMainForm;
Ref<IObjectFactory> gObjectFactory;

} // namespace portico

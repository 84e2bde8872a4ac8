#include "framework/IConfiguration.h"

namespace portico {

Ref<IConfiguration> gConfiguration;

} // namespace portico

#include "framework/shared/IConfiguration.h"

namespace portico {

Ref<IConfiguration> gConfiguration;

} // namespace portico

#include "framework/IObjectFactory.h"

namespace portico {

Ref<IObjectFactory> gObjectFactory;

} // namespace portico

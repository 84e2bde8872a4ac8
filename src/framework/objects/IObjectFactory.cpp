#include "framework/objects/IObjectFactory.h"

namespace portico {

Ref<IObjectFactory> gObjectFactory;

} // namespace portico

#include "document/entities/ITimeStamp.h"

namespace portico {

Ref<ITimeStamp> gTimeStamper;

} // namespace portico

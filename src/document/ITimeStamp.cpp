#include "document/ITimeStamp.h"

namespace portico {

Ref<ITimeStamp> gTimeStamper;

} // namespace portico

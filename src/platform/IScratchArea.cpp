#include "platform/IScratchArea.h"

namespace portico {

Ref<IScratchArea> gScratchArea;

} // namespace portico

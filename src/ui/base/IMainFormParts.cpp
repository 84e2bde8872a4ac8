#include "ui/base/IMainFormParts.h"

namespace portico {

Ref<IMainFormParts> gMainFormParts;

} // namespace portico

#include "framework/shared/IMainWindow.h"

namespace portico {

Ref<IMainWindow> gMainForm;

} // namespace portico

#include "framework/IMainWindow.h"

namespace portico {

Ref<IMainWindow> gMainForm;

} // namespace portico

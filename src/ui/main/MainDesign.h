#pragma once

#include "platform/FormDesign.h"

namespace portico {

/// The main window: every menu, button, panel and box that it has. Captions and tool tips are ids of resource strings.
extern const FormDesign MainDesign;

} // namespace portico

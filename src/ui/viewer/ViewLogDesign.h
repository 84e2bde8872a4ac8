#pragma once

#include "platform/FormDesign.h"

#include <span>

namespace portico {

/// The log viewer's menus, toolbar, status bar and controls.
const FormDesign& ViewLogDesign();

/// What a handler of the viewer says when it fails. Its label is the form's name, a dot, and the handler's name.
struct ViewLogHandler {
  StringView Name;
  StringView Sentence;
};
std::span<const ViewLogHandler> ViewLogHandlers();

} // namespace portico

#pragma once

#include "memory/forms/Control.h"

#include <memory>

namespace portico::memory {

/// A control of the kind that the design names; a kind that is made from a table of its own is a logic error.
std::unique_ptr<Control> MakeControl(ControlOwner& form, const ControlDesign& design, Control* container);

} // namespace portico::memory

#pragma once

#include "memory/forms/Control.h"

#include <memory>

namespace portico::memory {

/// A control of the kind that the design names; a kind that is made from a table of its own throws
/// `std::logic_error`.
std::unique_ptr<Control> MakeControl(ControlOwner& form, const ControlDesign& design, Control* container);

} // namespace portico::memory

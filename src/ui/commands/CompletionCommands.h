#pragma once

#include "framework/objects/Creator.h"

namespace portico {

/// Offers what completes the word at the caret. What is wrong with a command list is told first, once.
extern const CreatorRow CtorComplete;

/// Asks the open instrument for its commands, as the items of the menu do that ask for one answer: `*IDN?`,
/// `SYSTem:HELP:HEADers?`, and the error query until it is answered with 0. What it tells is kept. That it tells
/// nothing, and why, is shown in a message box. Takes no parameter.
extern const CreatorRow CtorAskForCommands;

} // namespace portico

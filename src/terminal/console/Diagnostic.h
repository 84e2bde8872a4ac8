#pragma once

#include "framework/text/Printable.h"

namespace portico::terminal {

/// The program's line for standard error, without its line end.
inline std::string Diagnostic(std::string_view text) { return portico::Diagnostic("portico-run", text); }

/// Of the error that was stopped last: what its report begins with, its description.
std::string WhatFailed();

} // namespace portico::terminal

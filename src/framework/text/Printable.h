#pragma once

#include "framework/text/text.h"

namespace portico {

/// A line as UTF-8, with question marks for the control characters that would spoil a terminal; a tab stays.
std::string Printable(StringView Line);

/// A program's line for standard error, without its line end: the program's name and the text. The text may quote what
/// the user typed or an instrument sent: question marks stand for control characters, tabs among them, and a byte that
/// is no UTF-8 stays as it was typed.
std::string Diagnostic(std::string_view Program, std::string_view Text);

} // namespace portico

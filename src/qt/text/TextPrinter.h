#pragma once

#include "qt/values/PrinterContext.h"
#include "richtext/FormattedText.h"

#include <QPrinter>

namespace portico::qt {

/// Prints a text as wide as the page, black on white; `standard` is what the printer's document is set in. The empty
/// text has no page.
void PrintText(const richtext::FormattedText& text, const richtext::CharacterFormat& standard, QPrinter& printer);

} // namespace portico::qt

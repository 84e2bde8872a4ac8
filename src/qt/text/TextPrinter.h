#pragma once

#include "platform/IRichTextControl.h"
#include "richtext/FormattedText.h"

#include <QPrinter>

namespace portico::qt {

/// Where a print dialog lets the text go: a printer, which the context's owner keeps.
class IPrinterContext : public virtual IDeviceContext {
public:
  virtual QPrinter& Printer() = 0;
  /// Only the selection is to be printed, if there is one.
  virtual bool SelectionOnly() const = 0;
};

/// Prints a text as wide as the page, black on white; `standard` is what the printer's document is set in. The empty
/// text has no page.
void PrintText(const richtext::FormattedText& text, const richtext::CharacterFormat& standard, QPrinter& printer);

} // namespace portico::qt

#pragma once

#include "platform/IRichTextControl.h"

class QPrinter;

namespace portico::qt {

/// Where a print dialog lets what is printed go: a printer, which the context's owner keeps.
class IPrinterContext : public virtual IDeviceContext {
public:
  virtual QPrinter& Printer() = 0;
  /// Only the selection is to be printed, if there is one.
  virtual bool SelectionOnly() const = 0;
};

} // namespace portico::qt

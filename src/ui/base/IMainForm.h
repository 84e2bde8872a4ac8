#pragma once

#include "framework/shared/IMainWindow.h"

namespace portico {

/// What `Main` needs of the main window beyond what the system below it needs.
class IMainForm : public virtual IMainWindow {
public:
  /// Runs the window's `Form_Load`.
  virtual void Show() = 0;
  virtual void mnuFileOpenInstrument_Click() = 0;
};

} // namespace portico

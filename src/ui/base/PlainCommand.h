#pragma once

#include "framework/shared/ICommand.h"
#include "ui/base/CommandSupport.h"

namespace portico {

/// A command of the user's that needs nothing but to be initialized. `Execute` raises 0x80041460 before that.
class PlainCommand : public ICommand {
public:
  void Initialize() { m_initialized = true; }

protected:
  void CheckInitialized() const { CheckReady(m_initialized); }

private:
  bool m_initialized = false;
};

} // namespace portico

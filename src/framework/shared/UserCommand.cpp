#include "framework/shared/UserCommand.h"

#include "framework/shared/Guards.h"

namespace portico {

void UserCommand::Execute() try {
  CheckInitialized(m_initialized);
  Act();
} catch (...) {
  PassOn(String(ReportedName()).append(u".ICommand_Execute"));
}

} // namespace portico

#include "channel/CChainLink.h"

#include "framework/errors/HuntERR.h"
#include "framework/shared/Guards.h"
#include "framework/shared/modCommand.h"

namespace portico {

void CChainLink::SetUp(const Ref<ICommand>& InnerCommand, const Ref<IPublisher>& Publisher) {
  m_innerCommand = InnerCommand;
  m_publisher = Publisher;
  m_response = nullptr;
  m_initialized = true;
}

void CChainLink::Execute() try {
  CheckInitialized(m_initialized);
  m_response = Operate();
  AfterOperation();
  modCommand::PublishIfAny(m_publisher, Ref<IObject>(shared_from_this()));
  if (m_innerCommand) m_innerCommand->Execute();
} catch (...) {
  PassOn(String(LabelName()).append(u".ICommand_Execute"));
}

} // namespace portico

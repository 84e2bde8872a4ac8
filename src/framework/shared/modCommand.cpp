#include "framework/shared/modCommand.h"

namespace portico::modCommand {

void PublishIfAny(const Ref<IPublisher>& Publisher, const Ref<IObject>& Subject) {
  if (Publisher) Publisher->Notify(Subject);
}

} // namespace portico::modCommand

#pragma once

#include "framework/shared/CInstContainer.h"
#include "framework/shared/ICommand.h"

namespace portico {

/// Turns an instruction into links around an inner command. Lives for one `Build`.
class IBuilder : public virtual IObject {
public:
  /// The new outermost link; `InnerCommand` itself, which may be unset, where there is nothing to add.
  virtual Ref<ICommand> Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>& Instruction) = 0;
};

} // namespace portico

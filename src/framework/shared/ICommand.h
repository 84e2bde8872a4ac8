#pragma once

#include "framework/errors/Ref.h"

namespace portico {

/// One operation: a user's action, or one link of an instruction's chain.
class ICommand : public virtual IObject {
public:
  /// Does it. All failures are raised.
  virtual void Execute() = 0;
};

} // namespace portico

#pragma once

#include "memory/forms/Keeper.h"
#include "platform/IControl.h"

namespace portico::memory {

class FocusChain;

/// A form, as its controls see it.
class ControlOwner {
public:
  virtual ~ControlOwner() = default;

  virtual Keeper& Life() = 0;
  virtual FocusChain& Focus() = 0;
  /// What the user does reaches it: it is on the screen, and no modal form is in front of it.
  virtual bool TakesInput() const = 0;
  /// The menu that has popped up; null for none.
  virtual const IControl* OpenPopup() const = 0;
  virtual void ClosePopup() = 0;
};

} // namespace portico::memory

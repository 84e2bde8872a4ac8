#pragma once

#include "framework/objects/Event.h"
#include "platform/IControl.h"

namespace portico {

/// A menu title, an item or a bar.
class IMenuItem : public virtual IControl {
public:
  /// What was set, whatever the user has clicked since.
  virtual bool Checked() const = 0;
  virtual void Checked(bool newValue) = 0;
  /// Fires when the item is chosen; for a title before its menu drops down.
  virtual Event<>& Click() = 0;
};

} // namespace portico

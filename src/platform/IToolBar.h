#pragma once

#include "framework/objects/Event.h"
#include "platform/IControl.h"
#include "platform/IPlaced.h"

#include <vector>

namespace portico {

/// A button of a toolbar, or a separator. It belongs to the toolbar.
class IToolButton {
public:
  virtual ~IToolButton() = default;

  virtual StringView Key() const = 0;
  virtual bool Enabled() const = 0;
  virtual void Enabled(bool newValue) = 0;
  virtual bool Visible() const = 0;
  virtual void Visible(bool newValue) = 0;
  /// 1 pressed, 0 not. A click on a button of check style turns it before `ButtonClick` fires.
  virtual std::int32_t Value() const = 0;
  virtual void Value(std::int32_t newValue) = 0;
  virtual String ToolTipText() const = 0;
  virtual void ToolTipText(const String& newValue) = 0;
};

class IToolBar : public virtual IControl, public virtual IPlaced {
public:
  /// In the order of the table.
  virtual std::vector<IToolButton*> Buttons() = 0;
  /// The button of a key, without regard to case; an unknown key raises `ElementNotFound`.
  virtual IToolButton& Buttons(StringView Key) = 0;
  virtual Event<IToolButton&>& ButtonClick() = 0;
};

} // namespace portico

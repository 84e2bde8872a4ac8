#pragma once

#include "platform/IControl.h"
#include "platform/IPlaced.h"

namespace portico {

class IStatusPanel {
public:
  virtual ~IStatusPanel() = default;

  virtual String Text() const = 0;
  virtual void Text(const String& newValue) = 0;
  virtual String ToolTipText() const = 0;
  virtual void ToolTipText(const String& newValue) = 0;
};

class IStatusBar : public virtual IControl, public virtual IPlaced {
public:
  /// Counted from 1; another position raises `IndexOutOfBounds`.
  virtual IStatusPanel& Panels(std::int32_t Index) = 0;
};

} // namespace portico

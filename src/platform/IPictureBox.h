#pragma once

#include "framework/objects/Event.h"
#include "framework/shared/PointerShapes.h"
#include "platform/IControl.h"
#include "platform/IPlaced.h"
#include "platform/MouseEvent.h"
#include "platform/SystemColors.h"

namespace portico {

/// A field in a colour that takes the mouse.
class IPictureBox : public virtual IControl, public virtual IPlaced {
public:
  virtual void BackColor(std::int32_t newValue) = 0;
  virtual void MousePointer(std::int32_t shape) = 0;
  /// To the top of the Z order.
  virtual void BringToFront() = 0;
  virtual Event<const MouseEvent&>& MouseDown() = 0;
  virtual Event<const MouseEvent&>& MouseMove() = 0;
  virtual Event<const MouseEvent&>& MouseUp() = 0;
};

/// The area of a control that is made of others: a bar that can be dragged, and whatever else is placed there.
class ISplitArea : public virtual IControl, public virtual IPlaced {
public:
  virtual double ScaleWidth() const = 0;
  virtual double ScaleHeight() const = 0;
  virtual IPictureBox& Splitter() = 0;
  virtual Event<>& Resize() = 0;
};

} // namespace portico

#pragma once

#include "framework/objects/Event.h"
#include "platform/IControl.h"
#include "platform/IPlaced.h"

namespace portico {

/// Button values of mouse events.
inline constexpr std::int32_t LeftButton = 1;
inline constexpr std::int32_t RightButton = 2;

/// A mouse button or the mouse over a control, at a place within it in form units.
struct MouseEvent {
  std::int32_t Button = 0;
  std::int32_t Shift = 0;
  double X = 0;
  double Y = 0;
};

/// Colours by their number: 0x00BBGGRR, or one of the system's.
inline constexpr std::int32_t SystemWindowText = static_cast<std::int32_t>(0x80000008);
inline constexpr std::int32_t SystemButtonFace = static_cast<std::int32_t>(0x8000000F);

/// Pointer shapes by their number; 0 is the one that the place has by itself.
inline constexpr std::int32_t SizeVerticalPointer = 7;
inline constexpr std::int32_t SizeHorizontalPointer = 9;

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

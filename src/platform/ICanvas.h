#pragma once

#include "framework/objects/Event.h"
#include "platform/Drawing.h"
#include "platform/IControl.h"
#include "platform/IPlaced.h"
#include "platform/MouseEvent.h"

namespace portico {

// Of the keys that have no code in all forms, those that a canvas tells.
inline constexpr std::int32_t PlusKey = 107;
inline constexpr std::int32_t MinusKey = 109;

/// A field that shows a drawing, has the focus when it is clicked or by the Tab key, and tells mouse and keys. It is
/// placed in a window.
class ICanvas : public virtual IControl, public virtual ITabOrder, public virtual IPlaced {
public:
  /// Takes the place of what is shown. Costs the taking over; it is painted when the event loop gets to it, once for
  /// all that came meanwhile.
  virtual void Show(Drawing newValue) = 0;
  /// What a screen reader says of it.
  virtual void Describe(const String& name, const String& description) = 0;

  /// In pixels, as texts are drawn here.
  virtual double ExtentOf(StringView text) const = 0;
  virtual double LineHeight() const = 0;

  // Fired at what the user does. Places are in form units, as with all controls.
  virtual Event<const MouseEvent&>& MouseDown() = 0;
  virtual Event<const MouseEvent&>& MouseMove() = 0;
  virtual Event<const MouseEvent&>& MouseUp() = 0;
  /// With how far the wheel was turned, 1 a notch, away from the user above 0.
  virtual Event<const MouseEvent&, double>& Wheel() = 0;
  /// A key code and the sum of the states, of arrows, Home, End, Page Up and Down, Delete, Escape, letters, digits,
  /// plus and minus.
  virtual Event<std::int32_t, std::int32_t>& KeyDown() = 0;
};

} // namespace portico

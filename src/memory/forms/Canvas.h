#pragma once

#include "memory/forms/DialogControls.h"
#include "memory/forms/Placement.h"
#include "platform/ICanvas.h"

namespace portico::memory {

/// Keeps what it shows. Each character is 7 pixels wide, a line 15 high.
class Canvas final : public DialogControl, public Placement, public virtual ICanvas {
public:
  Canvas(ControlOwner& form, const ControlDesign& design, Control* container)
      : DialogControl(form, design, container), Placement({}) {}

  void Show(Drawing newValue) override;
  void Describe(const String& name, const String& description) override;
  double ExtentOf(StringView text) const override { return 7.0 * static_cast<double>(text.size()); }
  double LineHeight() const override { return 15; }
  Event<const MouseEvent&>& MouseDown() override { return m_mouseDown; }
  Event<const MouseEvent&>& MouseMove() override { return m_mouseMove; }
  Event<const MouseEvent&>& MouseUp() override { return m_mouseUp; }
  Event<const MouseEvent&, double>& Wheel() override { return m_wheel; }
  Event<std::int32_t, std::int32_t>& KeyDown() override { return m_keyDown; }

  const Drawing& Picture() const { return m_drawing; }
  /// How often something was shown.
  int TimesShown() const { return m_timesShown; }
  const String& AccessibleName() const { return m_name; }
  const String& Description() const { return m_description; }

  // What the user does. False if the user cannot use the canvas; a button that was pressed in it is always released in
  // it.
  bool PressMouse(const MouseEvent& event);
  bool MoveMouse(const MouseEvent& event);
  bool ReleaseMouse(const MouseEvent& event);
  bool TurnWheel(const MouseEvent& event, double notches);
  /// With the focus here.
  bool PressKey(std::int32_t code, std::int32_t shift = 0);

private:
  Drawing m_drawing;
  int m_timesShown = 0;
  String m_name;
  String m_description;
  bool m_isPressed = false;
  Event<const MouseEvent&> m_mouseDown;
  Event<const MouseEvent&> m_mouseMove;
  Event<const MouseEvent&> m_mouseUp;
  Event<const MouseEvent&, double> m_wheel;
  Event<std::int32_t, std::int32_t> m_keyDown;
};

} // namespace portico::memory

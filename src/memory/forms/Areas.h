#pragma once

#include "memory/forms/Control.h"
#include "memory/forms/Placement.h"
#include "platform/IPictureBox.h"

namespace portico::memory {

/// Begins 32 pixels wide and high.
class PictureBox final : public Control, public Placement, public virtual IPictureBox {
public:
  PictureBox(ControlOwner& form, const ControlDesign& design, Control* container);

  void BackColor(std::int32_t newValue) override { m_backColor = newValue; }
  void MousePointer(std::int32_t shape) override { m_mousePointer = shape; }
  void BringToFront() override { ++m_timesInFront; }
  Event<const MouseEvent&>& MouseDown() override { return m_mouseDown; }
  Event<const MouseEvent&>& MouseMove() override { return m_mouseMove; }
  Event<const MouseEvent&>& MouseUp() override { return m_mouseUp; }

  // What was set last.
  std::int32_t BackColor() const { return m_backColor; }
  std::int32_t MousePointer() const { return m_mousePointer; }
  /// How often it was brought to the front.
  int TimesInFront() const { return m_timesInFront; }

  // What the user does. False if the user cannot use the box; a button that was pressed in it is always released in it.
  bool PressMouse(const MouseEvent& event);
  bool MoveMouse(const MouseEvent& event);
  bool ReleaseMouse(const MouseEvent& event);

private:
  std::int32_t m_backColor = SystemButtonFace;
  std::int32_t m_mousePointer = 0;
  int m_timesInFront = 0;
  bool m_isPressed = false;
  Event<const MouseEvent&> m_mouseDown;
  Event<const MouseEvent&> m_mouseMove;
  Event<const MouseEvent&> m_mouseUp;
};

/// Its inner area is as large as itself.
class SplitArea final : public Control, public Placement, public virtual ISplitArea {
public:
  SplitArea(ControlOwner& form, const ControlDesign& design, Control* container);

  double ScaleWidth() const override { return Width(); }
  double ScaleHeight() const override { return Height(); }
  PictureBox& Splitter() override { return m_splitter; }
  Event<>& Resize() override { return m_resize; }

private:
  void Resized() override { Fire(m_resize); }

  PictureBox m_splitter;
  Event<> m_resize;
};

} // namespace portico::memory

#include "memory/forms/Canvas.h"

#include <utility>

namespace portico::memory {

void Canvas::Show(Drawing newValue) {
  m_drawing = std::move(newValue);
  ++m_timesShown;
}

void Canvas::Describe(const String& name, const String& description) {
  m_name = name;
  m_description = description;
}

bool Canvas::PressMouse(const MouseEvent& event) {
  const Turn turn(Life());
  if (!Enter()) return false;
  m_isPressed = true;
  Fire(m_mouseDown, event);
  return true;
}

bool Canvas::MoveMouse(const MouseEvent& event) {
  if (!IsUsable() && !m_isPressed) return false;
  Fire(m_mouseMove, event);
  return true;
}

bool Canvas::ReleaseMouse(const MouseEvent& event) {
  if (!std::exchange(m_isPressed, false)) return false;
  Fire(m_mouseUp, event);
  return true;
}

bool Canvas::TurnWheel(const MouseEvent& event, double notches) {
  if (!IsUsable()) return false;
  Fire(m_wheel, event, notches);
  return true;
}

bool Canvas::PressKey(std::int32_t code, std::int32_t shift) {
  const Turn turn(Life());
  if (!Enter()) return false;
  Fire(m_keyDown, code, shift);
  return true;
}

} // namespace portico::memory

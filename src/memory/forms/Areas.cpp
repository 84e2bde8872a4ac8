#include "memory/forms/Areas.h"

#include <utility>

namespace portico::memory {
namespace {

constexpr Place PicturePlace = {0, 0, 32 * FormUnitsPerPixel, 32 * FormUnitsPerPixel};

} // namespace

PictureBox::PictureBox(ControlOwner& form, const ControlDesign& design, Control* container)
    : Control(form, design, container), Placement(PicturePlace) {}

bool PictureBox::PressMouse(const MouseEvent& event) {
  if (!IsUsable()) return false;
  m_isPressed = true;
  Fire(m_mouseDown, event);
  return true;
}

bool PictureBox::MoveMouse(const MouseEvent& event) {
  if (!IsUsable() && !m_isPressed) return false;
  Fire(m_mouseMove, event);
  return true;
}

bool PictureBox::ReleaseMouse(const MouseEvent& event) {
  if (!std::exchange(m_isPressed, false)) return false;
  Fire(m_mouseUp, event);
  return true;
}

SplitArea::SplitArea(ControlOwner& form, const ControlDesign& design, Control* container)
    : Control(form, design, container),
      Placement({}),
      m_splitter(form, {.Kind = ControlKind::PictureBox, .Name = u"Splitter"}, this) {}

} // namespace portico::memory

#include "memory/forms/FocusChain.h"

#include <cstddef>
#include <utility>

namespace portico::memory {

void FocusChain::MoveTo(FocusControl& control) {
  if (!IsReachable(control)) return;
  m_active = &control;
  Tell();
}

void FocusChain::MoveOn(bool backward) {
  const std::ptrdiff_t count = std::ssize(m_order.All());
  const std::ptrdiff_t step = backward ? -1 : 1;
  std::ptrdiff_t at = m_active != nullptr ? m_order.IndexOf(*m_active) : backward ? count : -1;
  for (std::ptrdiff_t tried = 0; tried < count; ++tried) {
    at = (at + step + count) % count;
    FocusControl& control = *m_order.All()[static_cast<std::size_t>(at)];
    if (control.IsTabStop() && IsReachable(control)) return MoveTo(control);
  }
}

void FocusChain::LightUp() {
  m_lit = true;
  if (m_active == nullptr) MoveOn(false);
  Tell();
}

void FocusChain::GoDark() {
  m_lit = false;
  Tell();
}

void FocusChain::Tell() {
  const Keeper::Turn turn(m_life);
  if (m_told == Current()) return;
  if (const FocusControl* old = std::exchange(m_told, nullptr); old != nullptr) old->m_lostFocus();
  // A handler may have moved it on, and told that.
  FocusControl* const now = Current();
  if (std::exchange(m_told, now) != now && now != nullptr) now->m_gotFocus();
}

bool FocusChain::IsReachable(const FocusControl& control) {
  for (const Control* part = &control; part != nullptr; part = part->Container()) {
    if (!part->Enabled()) return false;
  }
  return control.IsInSight();
}

} // namespace portico::memory

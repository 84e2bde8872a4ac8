#include "memory/FocusChain.h"

#include "framework/ErrorNumbers.h"
#include "framework/HuntERR.h"

#include <algorithm>

namespace portico::memory {

std::int32_t FocusChain::IndexOf(const FocusControl& control) const {
  return static_cast<std::int32_t>(std::find(m_order.begin(), m_order.end(), &control) - m_order.begin());
}

void FocusChain::IndexOf(FocusControl& control, std::int32_t newValue) {
  if (newValue < 0) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
  std::erase(m_order, &control);
  const auto place = std::min<std::ptrdiff_t>(newValue, std::ssize(m_order));
  m_order.insert(m_order.begin() + place, &control);
}

void FocusChain::MoveTo(FocusControl& control) {
  if (&control == m_active || !IsReachable(control)) return;
  const Keeper::Turn turn(m_life);
  FocusControl* const old = m_active;
  m_active = &control;
  if (!m_lit) return;
  if (old != nullptr) Fire(old->m_lostFocus);
  // A handler may have moved it on.
  if (m_lit && m_active == &control) Fire(control.m_gotFocus);
}

void FocusChain::MoveOn(bool backward) {
  const std::ptrdiff_t count = std::ssize(m_order);
  const std::ptrdiff_t step = backward ? -1 : 1;
  std::ptrdiff_t at = m_active != nullptr ? IndexOf(*m_active) : backward ? count : -1;
  for (std::ptrdiff_t tried = 0; tried < count; ++tried) {
    at = (at + step + count) % count;
    FocusControl& control = *m_order[static_cast<std::size_t>(at)];
    if (control.IsTabStop() && IsReachable(control)) return MoveTo(control);
  }
}

void FocusChain::LightUp() {
  if (m_lit) return;
  m_lit = true;
  if (m_active != nullptr) {
    Fire(m_active->m_gotFocus);
  } else {
    MoveOn(false);
  }
}

void FocusChain::GoDark() {
  if (!m_lit) return;
  m_lit = false;
  if (m_active != nullptr) Fire(m_active->m_lostFocus);
}

bool FocusChain::IsReachable(const FocusControl& control) {
  for (const Control* part = &control; part != nullptr; part = part->Container()) {
    if (!part->Enabled()) return false;
  }
  return control.IsInSight();
}

void FocusChain::Fire(const Event<>& event) const {
  const Keeper::Turn turn(m_life);
  event();
}

} // namespace portico::memory

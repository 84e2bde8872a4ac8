#include "memory/forms/FocusChain.h"

#include <cstddef>
#include <utility>

namespace portico::memory {

void FocusChain::MoveTo(IFocusStop& stop) {
  if (!stop.IsReachable()) return;
  m_active = &stop;
  Tell();
}

void FocusChain::MoveOn(bool backward) {
  const std::ptrdiff_t count = std::ssize(m_order.All());
  const std::ptrdiff_t step = backward ? -1 : 1;
  std::ptrdiff_t at = m_active != nullptr ? m_order.IndexOf(*m_active) : backward ? count : -1;
  for (std::ptrdiff_t tried = 0; tried < count; ++tried) {
    at = (at + step + count) % count;
    IFocusStop& stop = *m_order.All()[static_cast<std::size_t>(at)];
    if (stop.IsTabStop() && stop.IsReachable()) return MoveTo(stop);
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
  if (IFocusStop* old = std::exchange(m_told, nullptr); old != nullptr) old->Tell(false);
  // A handler may have moved it on, and told that.
  IFocusStop* const now = Current();
  if (std::exchange(m_told, now) != now && now != nullptr) now->Tell(true);
}

} // namespace portico::memory

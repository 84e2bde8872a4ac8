#pragma once

#include "platform/shared/Checks.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace portico {

/// The order in which the Tab key reaches what can have the focus. It owns none of that.
template <class Stop>
class TabPositions {
public:
  /// At the end.
  void Add(Stop& stop) { m_order.push_back(&stop); }
  /// Counted from 0; their number for one that is not among them.
  std::int32_t IndexOf(const Stop& stop) const {
    return static_cast<std::int32_t>(std::find(m_order.begin(), m_order.end(), &stop) - m_order.begin());
  }
  /// A position behind the end means the end; one below 0 raises `BadPropertyValue`.
  void Move(Stop& stop, std::int32_t position) {
    CheckValue(position, 0, std::numeric_limits<std::int32_t>::max());
    std::erase(m_order, &stop);
    m_order.insert(m_order.begin() + std::min<std::ptrdiff_t>(position, std::ssize(m_order)), &stop);
  }
  const std::vector<Stop*>& All() const { return m_order; }

private:
  std::vector<Stop*> m_order;
};

} // namespace portico

#include "terminal/RepeatedFaults.h"

#include <algorithm>

namespace portico::terminal {

void RepeatedFaults::Failed(StringView operation, const std::string& place, const std::string& text) {
  const auto standing = std::find_if(m_standing.begin(), m_standing.end(), [&](const Fault& fault) {
    return fault.Operation == operation && fault.Text == text;
  });
  if (standing != m_standing.end()) {
    standing->LastPlace = place;
    ++standing->Count;
    return;
  }
  m_standing.push_back({String(operation), text, place, 1});
  m_tell(place + text);
}

void RepeatedFaults::Succeeded(StringView operation) {
  std::erase_if(m_standing, [&](const Fault& fault) {
    if (fault.Operation != operation) return false;
    TellCount(fault);
    return true;
  });
}

void RepeatedFaults::End() {
  for (const Fault& fault : m_standing) TellCount(fault);
  m_standing.clear();
}

void RepeatedFaults::TellCount(const Fault& fault) const {
  if (fault.Count > 1) m_tell(fault.LastPlace + fault.Text + " (" + std::to_string(fault.Count) + " times)");
}

} // namespace portico::terminal

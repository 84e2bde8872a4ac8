#include "richtext/LineChanges.h"

#include <algorithm>

namespace portico::richtext {
namespace {

using Stretch = LineChanges::Stretch;

std::size_t EndOf(const Stretch& stretch) { return stretch.First + stretch.Count; }
std::size_t OldEndOf(const Stretch& stretch) { return stretch.OldFirst + stretch.OldCount; }

/// From the start of the one to the end of the other.
Stretch Join(const Stretch& head, const Stretch& tail) {
  return {head.First, EndOf(tail) - head.First, head.OldFirst, OldEndOf(tail) - head.OldFirst};
}

} // namespace

void LineChanges::Add(std::size_t first, std::size_t before, std::size_t after) {
  const auto touched = std::find_if(m_stretches.begin(), m_stretches.end(),
                                    [&](const Stretch& stretch) { return EndOf(stretch) >= first; });
  const auto behind =
      std::find_if(touched, m_stretches.end(), [&](const Stretch& stretch) { return stretch.First > first + before; });
  // What lies between stretches is as far from the copy's place as the end of the stretch in front of it.
  Stretch edit{first, before, first, before};
  if (touched != m_stretches.begin()) edit.OldFirst = OldEndOf(touched[-1]) + (first - EndOf(touched[-1]));
  if (touched != behind) {
    if (touched->First <= first) {
      edit.OldFirst = touched->OldFirst;
      edit.First = touched->First;
    }
    const Stretch& last = behind[-1];
    const std::size_t end = first + before;
    const std::size_t oldEnd = end > EndOf(last) ? OldEndOf(last) + (end - EndOf(last)) : OldEndOf(last);
    edit.Count = std::max(end, EndOf(last)) - edit.First;
    edit.OldCount = oldEnd - edit.OldFirst;
  }
  edit.Count = edit.Count - before + after;
  for (auto later = behind; later != m_stretches.end(); ++later) later->First = later->First - before + after;

  auto at = m_stretches.insert(m_stretches.erase(touched, behind), edit);
  if (m_stretches.size() <= MostStretches) return;
  if (at + 1 == m_stretches.end()) --at;
  at[0] = Join(at[0], at[1]);
  m_stretches.erase(at + 1);
}

} // namespace portico::richtext

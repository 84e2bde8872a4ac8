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

/// One without lines, or without lines of the copy, takes in a neighbour.
Stretch Widened(Stretch stretch, std::size_t lineCount) {
  if (stretch.Count > 0 && stretch.OldCount > 0) return stretch;
  if (EndOf(stretch) == lineCount) {
    --stretch.First;
    --stretch.OldFirst;
  }
  ++stretch.Count;
  ++stretch.OldCount;
  return stretch;
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
  while (m_stretches.size() > MostStretches) {
    if (at + 1 == m_stretches.end()) --at;
    at[0] = Join(at[0], at[1]);
    at = m_stretches.erase(at + 1) - 1;
  }
}

std::optional<LineChanges::Part> LineChanges::Take(std::size_t first, std::size_t end, std::size_t lineCount) {
  for (auto at = m_stretches.begin(); at != m_stretches.end(); ++at) {
    const Stretch whole = Widened(*at, lineCount);
    const std::size_t from = std::max(first, whole.First);
    const std::size_t behind = std::min(end, EndOf(whole));
    if (from >= behind) continue;
    const Part part{{from, behind - from, whole.OldFirst, whole.OldCount}, from > whole.First, behind < EndOf(whole)};
    Leave(at, whole, part);
    return part;
  }
  return {};
}

void LineChanges::Leave(std::vector<Stretch>::iterator at, const Stretch& whole, const Part& part) {
  const std::size_t behind = EndOf(part.Lines);
  const std::size_t given = part.Lines.Count + (part.WaitsBefore ? 1 : 0) + (part.WaitsBehind ? 1 : 0);
  at = m_stretches.erase(at);
  for (auto later = at; later != m_stretches.end(); ++later) later->OldFirst += given - whole.OldCount;
  if (part.WaitsBehind) {
    at = m_stretches.insert(at, {behind, EndOf(whole) - behind, whole.OldFirst + given - 1, 1});
  }
  if (part.WaitsBefore) m_stretches.insert(at, {whole.First, part.Lines.First - whole.First, whole.OldFirst, 1});
}

std::size_t LineChanges::InCopy(std::size_t line) const {
  const auto behind = std::find_if(m_stretches.begin(), m_stretches.end(),
                                   [&](const Stretch& stretch) { return stretch.First > line; });
  return behind == m_stretches.begin() ? line : OldEndOf(behind[-1]) + (line - EndOf(behind[-1]));
}

std::optional<std::size_t> LineChanges::InText(std::size_t copied) const {
  const auto behind = std::find_if(m_stretches.begin(), m_stretches.end(),
                                   [&](const Stretch& stretch) { return stretch.OldFirst > copied; });
  if (behind == m_stretches.begin()) return copied;
  if (copied < OldEndOf(behind[-1])) return {};
  return EndOf(behind[-1]) + (copied - OldEndOf(behind[-1]));
}

} // namespace portico::richtext

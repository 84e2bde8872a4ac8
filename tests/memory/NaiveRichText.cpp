#include "memory/NaiveRichText.h"

namespace portico::test {

void NaiveRichText::Replace(Slots text) {
  const std::size_t from = From();
  const std::size_t to = To();
  const Slot last = text.back();
  text.pop_back();
  if (from == to && text.empty()) return;
  const bool isLineStart = from == 0 || m_slots[from - 1].IsEnd();
  if (!isLineStart) m_slots[EndIndex(to)].Indent = EndOf(from).Indent;
  m_slots.erase(At(from), At(to));
  if (!text.empty()) {
    const bool endsWithin = !text.back().IsEnd();
    const bool hasEnds = std::any_of(text.begin(), text.end(), [](const Slot& slot) { return slot.IsEnd(); });
    const bool isEmptyLine = isLineStart && m_slots[from].IsEnd();
    if (endsWithin && (hasEnds || isEmptyLine)) m_slots[EndIndex(from)].Indent = last.Indent;
    m_slots.insert(At(from), text.begin(), text.end());
  }
  Select(PositionOf(from + text.size()), 0);
}

std::int32_t NaiveRichText::Find(StringView text, std::int32_t start, std::int32_t end) {
  const String all = Text();
  for (auto at = static_cast<std::size_t>(std::max(start, 0)); (at = all.find(text, at)) != String::npos; ++at) {
    const std::size_t behind = at + text.size();
    if (text.empty() || (end >= 0 && behind > static_cast<std::size_t>(end))) return -1;
    if (all[at] == u'\n' || (behind < all.size() && all[behind] == u'\n')) continue;
    Select(static_cast<std::int32_t>(at), static_cast<std::int32_t>(text.size()));
    return Start;
  }
  return -1;
}

void NaiveRichText::Span(StringView set) {
  const std::size_t to = To();
  std::size_t end = to;
  const auto has = [&](char16_t unit) { return set.find(unit) != StringView::npos; };
  while (end < Last() && (m_slots[end].IsEnd() ? has(u'\r') && has(u'\n') : has(m_slots[end].Unit))) ++end;
  if (end > to) Select(Start, PositionOf(end) - Start);
}

std::int32_t NaiveRichText::LineOf(std::int32_t position) const {
  const auto isEnd = [](const Slot& slot) { return slot.IsEnd(); };
  return static_cast<std::int32_t>(
      std::count_if(m_slots.begin(), m_slots.begin() + static_cast<std::ptrdiff_t>(IndexOf(position)), isEnd));
}

} // namespace portico::test

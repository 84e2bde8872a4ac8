#include "richtext/FormattedText.h"

#include <algorithm>
#include <iterator>

namespace portico::richtext {

void FormatRuns::Append(std::size_t length, const CharacterFormat& format) {
  if (length == 0) return;
  if (!m_runs.empty() && m_runs.back().Format == format) {
    m_runs.back().Length += length;
  } else {
    m_runs.push_back({length, format});
  }
}

void FormatRuns::Append(FormatRuns tail) {
  if (tail.m_runs.empty()) return;
  if (m_runs.empty()) {
    m_runs = std::move(tail.m_runs);
    return;
  }
  auto first = tail.m_runs.begin();
  if (m_runs.back().Format == first->Format) {
    m_runs.back().Length += first->Length;
    ++first;
  }
  m_runs.insert(m_runs.end(), std::make_move_iterator(first), std::make_move_iterator(tail.m_runs.end()));
}

const CharacterFormat& FormatRuns::At(std::size_t place) const {
  auto run = m_runs.begin();
  for (; place >= run->Length; ++run) place -= run->Length;
  return run->Format;
}

FormatRuns FormatRuns::Cut(std::size_t place) {
  auto run = m_runs.begin();
  for (; run != m_runs.end() && place >= run->Length; ++run) place -= run->Length;
  FormatRuns tail;
  if (run == m_runs.end()) return tail;
  if (place == 0 && run == m_runs.begin()) {
    std::swap(tail.m_runs, m_runs);
    return tail;
  }
  if (place > 0) {
    tail.m_runs.push_back({run->Length - place, run->Format});
    run->Length = place;
    ++run;
  }
  tail.m_runs.insert(tail.m_runs.end(), std::make_move_iterator(run), std::make_move_iterator(m_runs.end()));
  m_runs.erase(run, m_runs.end());
  return tail;
}

void FormatRuns::Truncate(std::size_t place) {
  auto run = m_runs.begin();
  for (; run != m_runs.end() && place >= run->Length; ++run) place -= run->Length;
  if (run == m_runs.end()) return;
  if (place > 0) (run++)->Length = place;
  m_runs.erase(run, m_runs.end());
}

FormatRuns FormatRuns::Copy(std::size_t place, std::size_t length) const {
  FormatRuns copy;
  Visit(place, length, [&](const CharacterFormat& format, std::size_t seen) { copy.m_runs.push_back({seen, format}); });
  return copy;
}

FormattedText FormatPlain(StringView text, const Formatting& formatting) {
  FormattedText lines;
  for (;;) {
    const std::size_t length = std::min(text.find_first_of(NewLine), text.size());
    lines.push_back({String(text.substr(0, length)), {length + 1, formatting.Character}, formatting.Paragraph});
    if (length == text.size()) return lines;
    text.remove_prefix(length + (text.substr(length).starts_with(NewLine) ? NewLine.size() : 1));
  }
}

std::int64_t LengthOf(const FormattedText& text) {
  std::int64_t length = -LineEndLength;
  for (const FormattedLine& line : text) length += static_cast<std::int64_t>(line.Text.size()) + LineEndLength;
  return length;
}

} // namespace portico::richtext

#include "views/faults/ErrorMarks.h"

#include <algorithm>
#include <utility>

namespace portico {
namespace {

String WithoutLineEnds(StringView text) {
  while (!text.empty() && (text.back() == u'\r' || text.back() == u'\n')) text.remove_suffix(1);
  return String(text);
}

} // namespace

ErrorMarks::ErrorMarks(const Ref<IRichTextControl>& text)
    : m_text(text),
      m_connection(text->Change().Connect([this] { TextChanged(); })),
      m_newest(text->TextLength()),
      m_end(m_newest) {}

ErrorMarks::~ErrorMarks() { m_text->Change().Disconnect(m_connection); }

void ErrorMarks::TextChanged() {
  m_newest = m_end;
  m_end = m_text->TextLength();
  if (m_end > 0 || m_errors.empty()) return;
  m_errors.clear();
  m_text->ClearMarks();
  Changed();
}

void ErrorMarks::MarkNewest(StringView instruction, StringView answer) {
  const std::int32_t line = m_text->GetLineFromChar(m_newest);
  if (!m_errors.empty() && m_errors.back().Line >= line) return;
  m_text->MarkLine(m_newest);
  m_errors.push_back({line, WithoutLineEnds(instruction), WithoutLineEnds(answer)});
  if (m_errors.size() == 1) Changed();
}

std::size_t ErrorMarks::Nearest() const {
  const auto next = std::ranges::lower_bound(m_errors, CaretLine(), {}, &FoundError::Line);
  return static_cast<std::size_t>((next == m_errors.end() ? next - 1 : next) - m_errors.begin());
}

void ErrorMarks::GoToNext() {
  const auto next = std::ranges::upper_bound(m_errors, CaretLine(), {}, &FoundError::Line);
  GoTo(next == m_errors.end() ? 0 : static_cast<std::size_t>(next - m_errors.begin()));
}

void ErrorMarks::GoToPrevious() {
  if (m_errors.empty()) return;
  const auto next = std::ranges::lower_bound(m_errors, CaretLine(), {}, &FoundError::Line);
  GoTo(static_cast<std::size_t>((next == m_errors.begin() ? m_errors.end() : next) - m_errors.begin()) - 1);
}

void ErrorMarks::GoTo(std::size_t error) {
  if (error >= m_errors.size()) return;
  m_text->SetFocus();
  m_text->GoToLine(m_errors[error].Line);
}

} // namespace portico

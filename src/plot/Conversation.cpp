#include "plot/Conversation.h"

#include "numbers/Block.h"

#include <algorithm>

namespace portico::plot {
namespace {

/// Without the one line end that an entity has behind it: a block may end in bytes that look like more.
StringView WithoutLineEnd(StringView text) {
  return text.ends_with(NewLine) ? text.substr(0, text.size() - NewLine.size()) : text;
}

} // namespace

void Conversation::Sent(StringView message) {
  m_message = Trim(WithoutLineEnd(message));
  m_clues.Sent(m_message);
}

void Conversation::Answered(StringView answer, double seconds) {
  if (m_message.empty()) return;
  ++m_count;
  const StringView text = WithoutLineEnd(answer);
  m_clues.Answered(m_message, text);
  m_queries.Add(m_message, text, seconds);
  const auto* answers = m_queries.Find(m_message);
  if (answers == nullptr) return;
  if (numbers::LooksLikeBlock(text) || answers->MostNumbers > 1) Keep(text);
}

void Conversation::Keep(StringView answer) {
  const auto same = [this](const LastAnswer& each) { return EqualNoCase(each.Query, m_message); };
  if (const auto found = std::find_if(m_last.begin(), m_last.end(), same); found != m_last.end()) {
    m_kept -= found->Text.size();
    m_last.erase(found);
  }
  m_last.push_back({m_message, String(answer), m_clues.Format(), m_clues.Scale(), m_count});
  m_kept += answer.size();
  while (m_last.size() > 1 && (m_kept > LongestKept || m_last.size() > numbers::AnsweredQueries::MostQueries)) {
    ForgetOldest();
  }
}

void Conversation::ForgetOldest() {
  m_kept -= m_last.front().Text.size();
  m_last.erase(m_last.begin());
}

const Conversation::LastAnswer* Conversation::Last(StringView query) const {
  const auto same = [query](const LastAnswer& each) { return EqualNoCase(each.Query, query); };
  const auto found = std::find_if(m_last.begin(), m_last.end(), same);
  return found == m_last.end() ? nullptr : &*found;
}

String Conversation::Newest() const {
  const auto& all = m_queries.All();
  const auto newest = std::max_element(all.begin(), all.end(),
                                       [](const auto& a, const auto& b) { return a.LastAnswer < b.LastAnswer; });
  return newest == all.end() ? String() : newest->Query;
}

} // namespace portico::plot

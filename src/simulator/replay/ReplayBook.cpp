#include "simulator/replay/ReplayBook.h"

#include "scpi/Mnemonic.h"
#include "scpi/Syntax.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

namespace portico::simulator {
namespace {

bool IsBlank(char byte) { return scpi::IsWhiteSpace(byte) || byte == '\n'; }

std::string_view Stripped(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

} // namespace

std::string ReplayBook::KeyOf(std::string_view message) {
  std::string key(Stripped(message));
  std::transform(key.begin(), key.end(), key.begin(), scpi::ToUpper);
  return key;
}

std::optional<ReplayBook::Index> ReplayBook::Find(const std::string& key) const {
  const auto [first, end] = m_numbers.equal_range(std::hash<std::string>()(key));
  const auto found = std::find_if(first, end, [this, &key](const auto& entry) {
    const ByteStore::Place place = m_messages[entry.second].Key;
    return place.Size == key.size() && m_store.Get(place) == key;
  });
  if (found == end) return {};
  return found->second;
}

void ReplayBook::Add(std::string_view message) {
  if (m_exchanges.size() >= m_most) throw Full();
  const std::string key = KeyOf(message);
  auto number = Find(key);
  if (!number) {
    number = static_cast<Index>(m_messages.size());
    m_messages.push_back({m_store.Add(key), {}});
    m_numbers.emplace(std::hash<std::string>()(key), *number);
  }
  m_messages[*number].Places.push_back(static_cast<Index>(m_exchanges.size()));
  m_exchanges.push_back({static_cast<Index>(m_answers.size()), m_ordered});
  if (!IsErrorQuery(key)) ++m_ordered;
}

void ReplayBook::AddAnswer(std::string_view answer) {
  if (!m_exchanges.empty()) m_answers.push_back(m_store.Add(answer));
}

std::vector<std::string> ReplayBook::AnswersOf(std::size_t place) const {
  const bool isLast = place + 1 == m_exchanges.size();
  const std::size_t end = isLast ? m_answers.size() : m_exchanges[place + 1].FirstAnswer;
  std::vector<std::string> answers;
  for (std::size_t i = m_exchanges[place].FirstAnswer; i < end; ++i) answers.push_back(m_store.Get(m_answers[i]));
  return answers;
}

ReplayBook::Index ReplayBook::OrderOf(std::size_t place) const {
  return place == m_exchanges.size() ? m_ordered : m_exchanges[place].Order;
}

ReplayBook::Reply ReplayBook::Ask(std::string_view message) {
  const std::string key = KeyOf(message);
  const auto found = Find(key);
  if (!found) return {.Error = scpi::ErrorCode::UndefinedHeader};
  const std::vector<Index>& places = m_messages[*found].Places;
  const auto ahead = std::lower_bound(places.begin(), places.end(), m_next);
  const bool isAhead = ahead != places.end();
  const std::size_t place = isAhead ? *ahead : places.back();
  const bool isInOrder = IsErrorQuery(key) || (isAhead && OrderOf(place) == OrderOf(m_next));
  if (isAhead) m_next = place + 1;
  return {.Answers = AnswersOf(place), .Error = isInOrder ? scpi::ErrorCode::NoError : scpi::ErrorCode::ExecutionError};
}

std::string ReplayBook::FirstAnswer(std::string_view message) const {
  const auto found = Find(KeyOf(message));
  if (!found) return {};
  const auto answers = AnswersOf(m_messages[*found].Places.front());
  return answers.empty() ? std::string() : answers.front();
}

bool IsErrorQuery(std::string_view message) {
  message = Stripped(message);
  if (!message.ends_with('?')) return false;
  message.remove_suffix(1);
  if (message.starts_with(':')) message.remove_prefix(1);
  static const std::array nodes = {scpi::Mnemonic("SYSTem"), scpi::Mnemonic("ERRor"), scpi::Mnemonic("NEXT")};
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const std::size_t colon = message.find(':');
    if (!nodes[i].Matches(message.substr(0, colon))) return false;
    if (colon == std::string_view::npos) return i > 0;
    message.remove_prefix(colon + 1);
  }
  return false;
}

} // namespace portico::simulator

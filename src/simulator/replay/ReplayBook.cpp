#include "simulator/replay/ReplayBook.h"

#include "scpi/Mnemonic.h"
#include "scpi/Syntax.h"

#include <algorithm>
#include <array>
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

void ReplayBook::Add(std::string_view message) {
  m_places[KeyOf(message)].push_back(m_exchanges.size());
  m_exchanges.emplace_back();
}

void ReplayBook::AddAnswer(std::string answer) {
  if (!m_exchanges.empty()) m_exchanges.back().Answers.push_back(std::move(answer));
}

ReplayBook::Reply ReplayBook::Ask(std::string_view message) {
  const auto found = m_places.find(KeyOf(message));
  if (found == m_places.end()) return {.Error = scpi::ErrorCode::UndefinedHeader};
  const std::vector<std::size_t>& places = found->second;
  const auto ahead = std::lower_bound(places.begin(), places.end(), m_next);
  const bool isNext = ahead != places.end() && *ahead == m_next;
  const std::size_t place = ahead == places.end() ? places.back() : *ahead;
  if (ahead != places.end()) m_next = place + 1;
  return {.Answers = &m_exchanges[place].Answers,
          .Error = isNext ? scpi::ErrorCode::NoError : scpi::ErrorCode::ExecutionError};
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

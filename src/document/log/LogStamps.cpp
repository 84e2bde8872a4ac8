#include "document/log/LogStamps.h"

#include "document/log/LogText.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace portico {
namespace {

constexpr std::string_view StampForm = "dddd-dd-ddTdd:dd:dd.ddddddddd-5:00";

} // namespace

bool HasStampForm(std::string_view text, std::string_view form) {
  return std::equal(text.begin(), text.end(), form.begin(), form.end(), [](char character, char expected) {
    return expected == 'd' ? character >= '0' && character <= '9' : character == expected;
  });
}

void LogStamps::SessionOpened(const LogElement& session) {
  Note(session, LogName::OpenStamp);
  Note(session, LogName::CloseStamp);
}

void LogStamps::Entity(const LogElement& entity) { Note(entity, LogName::Timestamp); }

std::int32_t LogStamps::HighestFrom(std::string_view second) const {
  const auto found = m_highest.lower_bound(second);
  return found == m_highest.end() ? -1 : found->second;
}

std::string LogStamps::Latest() const { return m_highest.empty() ? std::string() : m_highest.rbegin()->first; }

void LogStamps::Note(const LogElement& element, std::string_view attribute) {
  const std::string_view stamp = element.Attribute(attribute).value_or("");
  if (!HasStampForm(stamp, StampForm)) return;
  std::int32_t number = 0;
  std::from_chars(stamp.data() + StampSecondForm.size() + 1, stamp.data() + stamp.size(), number);
  Note(stamp.substr(0, StampSecondForm.size()), number);
}

void LogStamps::Note(std::string_view second, std::int32_t number) {
  auto next = m_highest.lower_bound(second);
  if (next != m_highest.end() && next->second >= number) return;
  if (next == m_highest.end() || next->first != second) next = m_highest.emplace_hint(next, second, number);
  next->second = number;
  while (next != m_highest.begin() && std::prev(next)->second <= number) m_highest.erase(std::prev(next));
}

} // namespace portico

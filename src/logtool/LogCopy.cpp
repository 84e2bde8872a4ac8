#include "logtool/LogCopy.h"

#include "document/log/LogStamps.h"
#include "document/log/LogText.h"

#include <algorithm>
#include <charconv>

namespace portico::logtool {
namespace {

constexpr std::size_t Digits = 9; // that the number of a stamp has at least
constexpr std::string_view Zone = "-5:00";

/// The number of a stamp, and where its digits end; none for a text that is no stamp.
struct StampNumber {
  std::int64_t Value;
  std::size_t End;
};
std::optional<StampNumber> NumberOf(std::string_view stamp) {
  const std::size_t start = StampSecondForm.size() + 1;
  if (stamp.size() < start || !HasStampForm(stamp.substr(0, StampSecondForm.size()), StampSecondForm)) return {};
  if (stamp[start - 1] != '.' || !stamp.ends_with(Zone)) return {};
  const std::size_t end = stamp.size() - Zone.size();
  StampNumber number{0, end};
  const auto [behind, fault] = std::from_chars(stamp.data() + start, stamp.data() + end, number.Value);
  if (fault != std::errc{} || behind != stamp.data() + end || number.Value < 0) return {};
  return number;
}

} // namespace

void LogCopy::BeginFile(const std::string& /*name*/) { m_session = 0; }

void LogCopy::OpenSession(const Session& session) {
  m_tag = session;
  ++m_session;
  m_isSelected = !m_selection.Session || *m_selection.Session == m_session;
  if (m_isSelected && !m_selection.HasTimes()) WriteTag();
}

std::string LogCopy::Take(const LogElement& element) {
  const std::string_view stamp = element.Attribute(LogName::Timestamp).value_or("");
  if (!m_isSelected || !m_selection.HasStamp(stamp)) return {};
  if (!m_isOpen) WriteTag();
  std::string text = "\n<";
  text += element.Name;
  for (const LogAttribute& attribute : element.Attributes) {
    const bool isStamp = attribute.Name == LogName::Timestamp;
    LogText::AppendAttribute(text, attribute.Name, isStamp ? Unique(attribute.Value) : attribute.Value);
  }
  text += '>';
  LogText::AppendCharacterData(text, FromUtf8(element.Text).Text);
  m_out << text << "</" << element.Name << '>';
  return {};
}

void LogCopy::CloseSession() {
  if (m_isOpen) m_out << LogText::SessionEnd;
  m_isOpen = m_isSelected = false;
}

void LogCopy::End() {
  WriteHead();
  m_out << LogText::RootEnd;
}

void LogCopy::WriteHead() {
  if (!m_hasHead) m_out << LogText::Head();
  m_hasHead = true;
}

void LogCopy::WriteTag() {
  WriteHead();
  std::string field; // with room for the close stamp, as the program leaves it
  if (m_tag.CloseStamp) LogText::AppendAttribute(field, LogName::CloseStamp, *m_tag.CloseStamp);
  field.resize(std::max(field.size(), LogText::CloseStampRoom), ' ');
  m_out << LogText::SessionTagStart(FromUtf8(m_tag.OpenStamp).Text) << field << '>';
  m_isOpen = true;
}

std::string LogCopy::Unique(std::string_view stamp) {
  const auto number = NumberOf(stamp);
  if (!number) return std::string(stamp);
  const std::string_view second = stamp.substr(0, StampSecondForm.size());
  auto next = m_next.find(second);
  if (next == m_next.end()) next = m_next.emplace(second, 0).first;
  const std::int64_t unique = std::max(number->Value, next->second);
  next->second = unique + 1;
  if (unique == number->Value) return std::string(stamp);
  std::string digits = std::to_string(unique);
  digits.insert(0, Digits - std::min(Digits, digits.size()), '0');
  return std::string(second).append(".").append(digits).append(stamp.substr(number->End));
}

} // namespace portico::logtool

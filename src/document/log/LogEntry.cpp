#include "document/log/LogEntry.h"

#include "document/encoders/CHexEncoder.h"
#include "document/log/LogText.h"

namespace portico {

LogSession ReadLogSession(const LogElement& element) {
  LogSession session;
  session.OpenStamp = element.Attribute(LogName::OpenStamp).value_or("");
  if (const auto stamp = element.Attribute(LogName::CloseStamp)) session.CloseStamp = *stamp;
  return session;
}

std::variant<LogEntry, std::string> ReadLogEntry(const LogElement& element) {
  LogEntry entry;
  entry.Kind = element.Attribute(LogName::DataType).value_or(element.Name);
  entry.Stamp = element.Attribute(LogName::Timestamp).value_or("");
  if (element.Attribute(LogName::DataFormat) == LogName::StringFormat) {
    entry.Text = FromUtf8(element.Text).Text;
    return entry;
  }
  const auto data = CHexEncoder::TryDecode(element.Text);
  if (!data) {
    return "the entity " + std::string(element.Name) + " of " + entry.Stamp +
           (element.Text.empty() ? " has no payload" : " has a payload that is not hexadecimal");
  }
  entry.Text = FromBytes(*data);
  return entry;
}

} // namespace portico

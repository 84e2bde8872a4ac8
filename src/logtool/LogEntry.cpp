#include "logtool/LogEntry.h"

#include "document/encoders/CHexEncoder.h"
#include "document/log/LogText.h"

namespace portico::logtool {

Session ReadSession(const LogElement& element) {
  Session session;
  session.OpenStamp = element.Attribute(LogName::OpenStamp).value_or("");
  if (const auto stamp = element.Attribute(LogName::CloseStamp)) session.CloseStamp = *stamp;
  return session;
}

std::variant<LogEntry, std::string> ReadEntry(const LogElement& element) {
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

std::vector<StringView> Lines(StringView text) {
  auto lines = Split(WithoutLineEnd(text), u"\n");
  for (StringView& line : lines) {
    if (!line.empty() && line.back() == u'\r') line.remove_suffix(1);
  }
  return lines;
}

StringView WithoutLineEnd(StringView text) {
  if (!text.empty() && text.back() == u'\n') text.remove_suffix(1);
  if (!text.empty() && text.back() == u'\r') text.remove_suffix(1);
  return text;
}

} // namespace portico::logtool

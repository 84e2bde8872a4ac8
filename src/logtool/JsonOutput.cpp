#include "logtool/JsonOutput.h"

namespace portico::logtool {

std::string JsonString(std::string_view text) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string json = "\"";
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\') {
      json.append({'\\', character});
    } else if (character == '\n') {
      json += "\\n";
    } else if (character == '\r') {
      json += "\\r";
    } else if (character == '\t') {
      json += "\\t";
    } else if (byte < 0x20) {
      json.append("\\u00").append({digits[byte >> 4U], digits[byte & 0xFU]});
    } else {
      json += character;
    }
  }
  return json + "\"";
}

void JsonOutput::BeginFile(const std::string& name) {
  m_file = JsonString(ToUtf8(FromUtf8(name).Text));
  m_number = 0;
}

void JsonOutput::OpenSession(const Session& session) {
  m_start = "{\"file\":" + m_file + ",\"session\":" + std::to_string(++m_number) +
            ",\"sessionOpen\":" + JsonString(session.OpenStamp) +
            ",\"sessionClose\":" + (session.CloseStamp ? JsonString(*session.CloseStamp) : "null");
}

std::string JsonOutput::Add(const LogEntry& entry) {
  m_out << (m_first ? "\n" : ",\n") << m_start << ",\"kind\":" << JsonString(entry.Kind)
        << ",\"timestamp\":" << JsonString(entry.Stamp) << ",\"text\":" << JsonString(ToUtf8(entry.Text)) << '}';
  m_first = false;
  return {};
}

} // namespace portico::logtool

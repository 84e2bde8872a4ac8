#include "logtool/CsvOutput.h"

namespace portico::logtool {
namespace {

std::string Field(const std::string& text) {
  if (text.find_first_of("\",\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"') quoted += '"';
    quoted += character;
  }
  return quoted + "\"";
}

} // namespace

CsvOutput::CsvOutput(std::ostream& out) : m_out(out) { m_out << "File,Session,SessionOpen,Kind,Timestamp,Text\r\n"; }

void CsvOutput::BeginFile(const std::string& name) {
  m_file = Field(ToUtf8(FromUtf8(name).Text));
  m_number = 0;
}

void CsvOutput::OpenSession(const Session& session) {
  m_start = m_file + "," + std::to_string(++m_number) + "," + Field(session.OpenStamp) + ",";
}

std::string CsvOutput::Add(const LogEntry& entry) {
  m_out << m_start << Field(entry.Kind) << ',' << Field(entry.Stamp) << ',' << Field(ToUtf8(WithoutLineEnd(entry.Text)))
        << "\r\n";
  return {};
}

} // namespace portico::logtool

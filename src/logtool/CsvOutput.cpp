#include "logtool/CsvOutput.h"

#include "logtool/CsvField.h"

namespace portico::logtool {
CsvOutput::CsvOutput(std::ostream& out) : m_out(out) { m_out << "File,Session,SessionOpen,Kind,Timestamp,Text\r\n"; }

void CsvOutput::BeginFile(const std::string& name) {
  m_file = CsvField(ToUtf8(FromUtf8(name).Text));
  m_number = 0;
}

void CsvOutput::OpenSession(const Session& session) {
  m_start = m_file + "," + std::to_string(++m_number) + "," + CsvField(session.OpenStamp) + ",";
}

std::string CsvOutput::Add(const LogEntry& entry) {
  m_out << m_start << CsvField(entry.Kind) << ',' << CsvField(entry.Stamp) << ','
        << CsvField(ToUtf8(WithoutLineEnd(entry.Text))) << "\r\n";
  return {};
}

} // namespace portico::logtool

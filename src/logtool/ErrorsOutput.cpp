#include "logtool/ErrorsOutput.h"

#include "framework/text/Printable.h"

namespace portico::logtool {

void ErrorsOutput::BeginFile(const std::string& name) {
  m_file = Printable(FromUtf8(name == "-" ? "standard input" : name).Text);
  m_number = 0;
}

void ErrorsOutput::OpenSession(const Session& /*session*/) { m_errors.Begin(); }

std::string ErrorsOutput::Add(const LogEntry& entry) {
  ++m_number;
  if (m_errors.Add(FromUtf8(entry.Kind).Text, entry.Text) == LogErrors::Finding::None) return {};
  m_out << m_file << ':' << m_number << ": ";
  if (!m_errors.Instruction().empty()) m_out << Printable(Lines(m_errors.Instruction()).front()) << " -> ";
  m_out << Printable(Lines(entry.Text).front()) << '\n';
  return {};
}

} // namespace portico::logtool

#include "logtool/ShowOutput.h"

#include "framework/text/Printable.h"

namespace portico::logtool {
namespace {

const char* MarkOf(const std::string& kind) {
  if (kind == "Instruction") return "> ";
  if (kind == "AutomaticInstruction") return "* ";
  if (kind == "Response") return "< ";
  return "! ";
}

} // namespace

void ShowOutput::BeginFile(const std::string& name) {
  if (m_namesFiles) m_out << "# " << Printable(FromUtf8(name).Text) << '\n';
}

void ShowOutput::OpenSession(const Session& session) {
  m_out << "# session from " << Printable(FromUtf8(session.OpenStamp).Text);
  if (session.CloseStamp) {
    m_out << " to " << Printable(FromUtf8(*session.CloseStamp).Text) << '\n';
  } else {
    m_out << ", not closed\n";
  }
}

std::string ShowOutput::Add(const Entry& entry) {
  const std::string start = Printable(FromUtf8(entry.Stamp).Text) + " " + MarkOf(entry.Kind);
  for (const StringView line : Lines(entry.Text)) m_out << start << Printable(line) << '\n';
  return {};
}

} // namespace portico::logtool

#include "logtool/LogInput.h"

#include "document/log/WholeLog.h"
#include "framework/text/Printable.h"

#include <cerrno>

namespace portico::logtool {
namespace {

/// Hands a log on to an output, entity by entity.
class Reading final : public ILogVisitor {
public:
  Reading(ILogOutput& output, const std::ostream& out) : m_output(output), m_out(out) {}

  /// What could not be read or printed first, and how much more there was.
  std::string Complaint() const {
    if (m_complaints < 2) return m_first;
    return m_first + " (and " + std::to_string(m_complaints - 1) + " more like it)";
  }

  void SessionOpened(const LogElement& session) override { m_output.OpenSession(ReadLogSession(session)); }
  void Entity(const LogElement& element) override {
    Complain(m_output.Take(element));
    if (!m_out) throw OutputEnded{errno};
  }
  void SessionClosed() override { m_output.CloseSession(); }

private:
  void Complain(const std::string& text) {
    if (text.empty()) return;
    if (m_complaints++ == 0) m_first = text;
  }

  ILogOutput& m_output;
  const std::ostream& m_out;
  std::size_t m_complaints = 0;
  std::string m_first;
};

} // namespace

std::string ReadLog(const std::string& name, ILogOutput& output, const Streams& streams) {
  Reading visitor(output, streams.Out);
  const LogFinding finding =
      name == "-" ? ReadWholeLog(LogReader::SourceOf(streams.In), visitor) : ReadWholeLog(name, visitor);
  return finding.Fault.empty() ? visitor.Complaint() : finding.Fault;
}

std::string Diagnostic(const std::string& text) { return portico::Diagnostic("portico-log", text); }

void TellFault(const std::string& name, const std::string& fault, const Streams& streams) {
  streams.Out.flush();
  streams.Err << Diagnostic((name == "-" ? "standard input" : name) + ": " + fault) << std::endl;
}

} // namespace portico::logtool

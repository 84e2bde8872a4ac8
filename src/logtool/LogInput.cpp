#include "logtool/LogInput.h"

#include "document/log/LogFile.h"
#include "document/log/LogReader.h"
#include "document/log/LogText.h"
#include "framework/shared/Application.h"
#include "framework/text/Printable.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <memory>
#include <streambuf>
#include <system_error>

namespace portico::logtool {
namespace {

/// Thrown when a header shows that the log is not one to be read.
struct NoLog {
  LogFault Fault;
};

/// Hands a log on to an output, entity by entity.
class Reading final : public ILogVisitor {
public:
  Reading(ILogOutput& output, const std::ostream& out) : m_output(output), m_out(out) {}

  /// What could not be read or printed first, and how much more there was.
  std::string Complaint() const {
    if (m_complaints < 2) return m_first;
    return m_first + " (and " + std::to_string(m_complaints - 1) + " more like it)";
  }

  void Header(const LogElement& header) override {
    const auto application = header.Attribute(LogName::ApplicationName).value_or("");
    const LogFault fault = LogReading::FaultOf(++m_headers, application);
    if (fault != LogFault::None) throw NoLog{fault};
  }
  void SessionOpened(const LogElement& session) override { m_output.OpenSession(ReadSession(session)); }
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
  std::size_t m_headers = 0;
  std::size_t m_complaints = 0;
  std::string m_first;
};

/// Waits for what comes next, and no longer.
LogReader::Source SourceOf(std::istream& in) {
  return [&in](char* buffer, std::size_t size) -> std::size_t {
    std::streambuf& stream = *in.rdbuf();
    if (std::streambuf::traits_type::eq_int_type(stream.sgetc(), std::streambuf::traits_type::eof())) return 0;
    const auto count = std::clamp<std::streamsize>(stream.in_avail(), 1, static_cast<std::streamsize>(size));
    return static_cast<std::size_t>(stream.sgetn(buffer, count));
  };
}

/// Empty for none.
std::string TextOf(LogFault fault) {
  switch (fault) {
  case LogFault::NoHeader:
    return "it is no log";
  case LogFault::SecondHeader:
    return "it has more than one header";
  case LogFault::OtherApplication:
    return "it is no log of " + ToUtf8(ApplicationTitle);
  case LogFault::None:
    break;
  }
  return {};
}

std::string WhatIsWrong(const LogReading& reading) {
  std::string place = "line " + std::to_string(reading.Line) + ": " + reading.Reason;
  if (reading.Ending == LogReading::End::Torn) return "its end is missing (" + place + ")";
  if (reading.Ending == LogReading::End::Broken) return place;
  if (!reading.IsOurs()) return TextOf(reading.Fault());
  if (!reading.TornCloseStamps.empty()) return "a session's close stamp is damaged";
  return {};
}

/// What is wrong with the log; empty if nothing is.
std::string Read(const LogReader::Source& source, ILogOutput& output, const std::ostream& out) {
  Reading visitor(output, out);
  try {
    const std::string fault = WhatIsWrong(LogReader::Read(source, visitor));
    return fault.empty() ? visitor.Complaint() : fault;
  } catch (const NoLog& fault) {
    return TextOf(fault.Fault);
  } catch (const std::system_error&) {
    return "it cannot be read";
  }
}

} // namespace

std::string ReadLog(const std::string& name, ILogOutput& output, const Streams& streams) {
  if (name == "-") return Read(SourceOf(streams.In), output, streams.Out);
  std::error_code fault;
  if (std::filesystem::is_directory(name, fault)) return "it is a directory";
  if (!std::filesystem::is_regular_file(name, fault)) {
    std::ifstream stream(name, std::ios::binary);
    if (!stream) return "it cannot be opened";
    return Read(SourceOf(stream), output, streams.Out);
  }
  std::unique_ptr<ILogFile> file;
  try {
    file = LogDisk().Open(name, ILogDisk::Access::Read);
  } catch (const std::system_error&) { // told below
  }
  if (!file) return "it cannot be opened";
  return Read(LogReader::SourceOf(*file), output, streams.Out);
}

std::string Diagnostic(const std::string& text) { return portico::Diagnostic("portico-log", text); }

void TellFault(const std::string& name, const std::string& fault, const Streams& streams) {
  streams.Out.flush();
  streams.Err << Diagnostic((name == "-" ? "standard input" : name) + ": " + fault) << std::endl;
}

} // namespace portico::logtool

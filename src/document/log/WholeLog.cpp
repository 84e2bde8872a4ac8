#include "document/log/WholeLog.h"

#include "document/log/LogFile.h"
#include "document/log/LogText.h"
#include "framework/shared/Application.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

namespace portico {
namespace {

/// Thrown when a header shows that the log is not one to be read.
struct NoLog {
  LogFault Fault;
};

/// Hands on what it is told, and looks at the headers.
class Checked final : public ILogVisitor {
public:
  explicit Checked(ILogVisitor& visitor) : m_visitor(visitor) {}

  void Header(const LogElement& header) override {
    const auto application = header.Attribute(LogName::ApplicationName).value_or("");
    const LogFault fault = LogReading::FaultOf(++m_headers, application);
    if (fault != LogFault::None) throw NoLog{fault};
    m_visitor.Header(header);
  }
  void SessionOpened(const LogElement& session) override { m_visitor.SessionOpened(session); }
  void Entity(const LogElement& element) override { m_visitor.Entity(element); }
  void SessionClosed() override { m_visitor.SessionClosed(); }

private:
  ILogVisitor& m_visitor;
  std::size_t m_headers = 0;
};

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

LogFinding WhatIsWrong(const LogReading& reading) {
  std::string place = "line " + std::to_string(reading.Line) + ": " + reading.Reason;
  if (reading.Ending == LogReading::End::Torn) return {"its end is missing (" + place + ")", reading.IsOurs()};
  if (reading.Ending == LogReading::End::Broken) return {std::move(place)};
  if (!reading.IsOurs()) return {TextOf(reading.Fault())};
  if (!reading.TornCloseStamps.empty()) return {"a session's close stamp is damaged", true};
  return {};
}

} // namespace

LogFinding ReadWholeLog(const LogReader::Source& source, ILogVisitor& visitor) {
  Checked checked(visitor);
  try {
    return WhatIsWrong(LogReader::Read(source, checked));
  } catch (const NoLog& fault) {
    return {TextOf(fault.Fault)};
  } catch (const std::system_error&) {
    return {"it cannot be read"};
  }
}

LogFinding ReadWholeLog(const std::string& path, ILogVisitor& visitor) {
  std::error_code fault;
  if (std::filesystem::is_directory(path, fault)) return {"it is a directory"};
  if (!std::filesystem::is_regular_file(path, fault)) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) return {"it cannot be opened"};
    return ReadWholeLog(LogReader::SourceOf(stream), visitor);
  }
  std::unique_ptr<ILogFile> file;
  try {
    file = LogDisk().Open(path, ILogDisk::Access::Read);
  } catch (const std::system_error&) { // told below
  }
  if (!file) return {"it cannot be opened"};
  return ReadWholeLog(LogReader::SourceOf(*file), visitor);
}

} // namespace portico

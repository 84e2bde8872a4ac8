#pragma once

#include "document/log/LogEntry.h"
#include "logtool/Lines.h"

#include <string>

namespace portico::logtool {

using Session = LogSession;

/// Is told what stands in several logs, one after the other, and prints it.
class ILogOutput {
public:
  virtual ~ILogOutput() = default;

  virtual void BeginFile(const std::string& /*name*/) {}
  virtual void OpenSession(const Session&) {}
  /// An entity, as it stands in the log: reads it and adds it. Answers what is wrong with it; empty if all is well.
  virtual std::string Take(const LogElement& element);
  /// An entity. Answers what cannot be printed about it; empty if all is well.
  virtual std::string Add(const LogEntry& /*entry*/) { return {}; }
  virtual void CloseSession() {}
  virtual void EndFile() {}
  /// Behind the last file.
  virtual void End() {}
};

} // namespace portico::logtool

#pragma once

#include "logtool/LogEntry.h"

#include <string>

namespace portico::logtool {

/// Is told what stands in several logs, one after the other, and prints it.
class ILogOutput {
public:
  virtual ~ILogOutput() = default;

  virtual void BeginFile(const std::string& /*name*/) {}
  virtual void OpenSession(const Session&) {}
  /// Answers what cannot be printed about the entity; empty if all is well.
  virtual std::string Add(const LogEntry&) = 0;
  virtual void CloseSession() {}
  virtual void EndFile() {}
  /// Behind the last file.
  virtual void End() {}
};

} // namespace portico::logtool

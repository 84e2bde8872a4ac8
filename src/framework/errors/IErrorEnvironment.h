#pragma once

#include "framework/text/text.h"

#include <chrono>
#include <cstdint>
#include <ctime>

namespace portico {

/// What error reporting needs of the outside. The program's owner hands one in and keeps it alive; no function throws.
class IErrorEnvironment {
public:
  virtual ~IErrorEnvironment() = default;

  /// Local date and time.
  virtual std::tm LocalTime() const = 0;
  virtual String ComputerName() const = 0;
  /// Without its directory.
  virtual String ProgramFileName() const = 0;
  /// Without a separator at its end, unless it is the root.
  virtual String ProgramDirectory() const = 0;
  /// Major, minor and revision, joined by ".".
  virtual String ProgramVersion() const = 0;
  /// The operating system's text for one of its error numbers.
  virtual String SystemMessage(std::uint32_t number) const = 0;
  /// The separator of the system's file names: '/' or '\'.
  virtual char16_t PathSeparator() const = 0;

  /// Appends the text to the file as UTF-8 and makes the file if need be; false if it cannot be opened now.
  virtual bool AppendToFile(const String& path, const String& text) = 0;
  /// A monotonic clock, and a sleep on it.
  virtual std::chrono::milliseconds Ticks() const = 0;
  virtual void Sleep(std::chrono::milliseconds duration) = 0;
};

namespace HuntERR {

/// Whose clock, names and files reports use; null for none. Not owned.
void SetEnvironment(IErrorEnvironment* environment);
/// Never null; without one that was set, a silent one without names that writes nothing.
IErrorEnvironment& Environment();

} // namespace HuntERR

} // namespace portico

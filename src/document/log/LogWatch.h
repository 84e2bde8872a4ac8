#pragma once

#include <cstdint>

namespace portico {

struct LogElement;
struct LogReading;

/// Is told how far the reading of a log has come, and may use the program meanwhile. What it throws ends the reading
/// and reaches whoever has asked for it.
class ILogWatcher {
public:
  virtual ~ILogWatcher() = default;
  /// Called before each piece of a pass over the file, first with 0. A log may be read in more passes than one.
  virtual void BytesRead(std::uint64_t done, std::uint64_t total) = 0;
  /// A session begins in the log from which a container is being filled.
  virtual void SessionRead(const LogElement& /*session*/) {}
  /// An entity has been put into that container.
  virtual void EntityRead(const LogElement& entity) = 0;
  /// Behind the filling: the log is torn, and nobody is writing it.
  virtual void EndIsMissing(const LogReading& reading) = 0;
};

/// Lets a watcher see what is read while this lives; without one nobody is told. Watches are given up in the reverse of
/// their order, and the last one counts. What a watcher reads itself while it is being told is not told to it.
class LogWatch final {
public:
  explicit LogWatch(ILogWatcher* watcher);
  ~LogWatch();
  LogWatch(const LogWatch&) = delete;
  LogWatch& operator=(const LogWatch&) = delete;

  static void TellBytes(std::uint64_t done, std::uint64_t total);
  static void TellSession(const LogElement& session);
  static void TellEntity(const LogElement& entity);
  static void TellMissingEnd(const LogReading& reading);

private:
  ILogWatcher* m_before;
};

} // namespace portico

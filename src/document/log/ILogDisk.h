#pragma once

#include "framework/objects/Event.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace portico {

/// Tells one file from another of the same name, and one length of it from another.
struct LogFileIdentity {
  std::uint64_t Device = 0;
  std::uint64_t File = 0;
  std::uint64_t Size = 0;

  bool operator==(const LogFileIdentity&) const = default;
};

/// An open file, closed when it is let go. Failures are thrown as std::system_error.
class ILogFile {
public:
  virtual ~ILogFile() = default;

  virtual LogFileIdentity Identity() const = 0;
  /// As it was when it was opened, and locked if it was to be. Takes no further look.
  virtual LogFileIdentity WhenOpened() const = 0;
  /// Fills the buffer as far as the file goes; returns the number of bytes.
  virtual std::size_t Read(std::uint64_t position, char* buffer, std::size_t size) const = 0;
  /// Writes in the order of the bytes. Of a write that fails some may have been written.
  virtual void Write(std::uint64_t position, std::string_view bytes) = 0;
  virtual void Truncate(std::uint64_t size) = 0;
  /// To be called behind the last write: some disks tell only here that they are full. The file cannot be used any
  /// more.
  virtual void Close() = 0;
};

/// The place where logs lie. Paths are UTF-8. Failures are thrown as std::system_error.
class ILogDisk {
public:
  enum class Access { Read, LockedRead, ReadAndWrite };
  /// Calls its argument with the pieces of a new file, in order.
  using Sink = std::function<void(std::string_view)>;

  virtual ~ILogDisk() = default;

  /// Somebody else has a file locked: a wait begins.
  Event<> AboutToWait;

  /// Something that is no directory has the name.
  virtual bool Exists(const std::string& path) const = 0;
  /// No file for an absent one. What is not a plain file is refused. A file that is opened for writing is locked
  /// against every other that is, until it is let go; one that is read under a lock is locked against all that write.
  /// A file that somebody else keeps locked for too long is refused.
  virtual std::unique_ptr<ILogFile> Open(const std::string& path, Access access) = 0;
  /// Removes a plain file; leaves anything else alone.
  virtual void Remove(const std::string& path) = 0;
  /// Makes a new file in one step: nobody ever sees a part of it. `write` is called once and hands the bytes over; if
  /// it throws, nothing changes. The file is open for writing. No file if there is one of that name already.
  virtual std::unique_ptr<ILogFile> Create(const std::string& path, const std::function<void(const Sink&)>& write) = 0;
  /// Puts a new file in the place of the old, in the same way.
  virtual std::unique_ptr<ILogFile> Replace(const std::string& path, const std::function<void(const Sink&)>& write) = 0;
};

} // namespace portico

#pragma once

#include "system/FileDescriptor.h"

#include <string>
#include <string_view>

namespace portico::system {

/// A file that is written beside its place and comes there when it is whole, so that nobody ever finds a part of it;
/// what stood there stays until then. What stands there and is no plain file, such as a pipe, is written as it is.
///
/// Each function answers 0 or the system's error number.
class PendingFile {
public:
  explicit PendingFile(std::string path) : m_path(std::move(path)) {}
  PendingFile(const PendingFile&) = delete;
  PendingFile& operator=(const PendingFile&) = delete;
  /// Without a Commit() that succeeded nothing is left of it.
  ~PendingFile();

  int Open();
  int Write(std::string_view bytes);
  /// Puts bytes in front of what has been written: makes the file anew.
  int Prepend(std::string_view bytes);
  int Commit();

private:
  int OpenBeside();
  void Discard();

  std::string m_path;
  std::string m_pendingPath; // empty for what is written as it is
  FileDescriptor m_file;
};

} // namespace portico::system

#pragma once

#include <utility>

namespace portico::system {

/// Owns a file descriptor of the operating system and closes it in the end.
class FileDescriptor {
public:
  FileDescriptor() = default;
  explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) {}
  ~FileDescriptor();
  FileDescriptor(FileDescriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
  }

  int Get() const { return m_descriptor; }
  bool IsOpen() const { return m_descriptor >= 0; }

private:
  int m_descriptor = -1;
};

} // namespace portico::system

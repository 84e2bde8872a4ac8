#pragma once

#include <utility>

namespace portico::simulator {

/// Owns a file descriptor of the operating system and closes it in the end.
class FileDescriptor {
public:
  FileDescriptor() = default;
  explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
  ~FileDescriptor();
  FileDescriptor(FileDescriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }

  int Get() const { return descriptor_; }
  bool IsOpen() const { return descriptor_ >= 0; }

private:
  int descriptor_ = -1;
};

} // namespace portico::simulator

#pragma once

#include "document/log/ILogDisk.h"
#include "framework/errors/Quit.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <map>
#include <optional>
#include <system_error>
#include <utility>

namespace portico::test {

/// A disk for logs in memory, that can be full, that can refuse, and that can be looked at between any two bytes.
class MemoryLogDisk final : public ILogDisk {
public:
  struct File {
    std::uint64_t Number = 0;
    std::string Bytes;
  };

  /// Of one file; what does not fit is not written, and fails.
  std::size_t Capacity = std::numeric_limits<std::size_t>::max();
  /// The error number of each opening, of each lock, and of each new file; 0 for none.
  int OpenFault = 0;
  int LockFault = 0; // of a reading only
  int ReplaceFault = 0;
  /// Of each truncation, and of each closing.
  int TruncateFault = 0;
  int CloseFault = 0;
  /// How many bytes may be written until nothing can be written any more, as when the process is killed.
  std::optional<std::size_t> BytesToLive;
  /// Bytes, truncations and new files so far.
  std::size_t Steps = 0;

  /// What others do once, when it has been seen that there is no file.
  std::function<void()> BeforeCreation;
  /// What the one who holds the lock still does before another gets it to read.
  std::function<void()> BeforeLockedRead;

  /// The end of the program, which every tail lets pass.
  struct Killed : Quit {};

  bool Exists(const std::string& path) const override { return m_files.count(path) != 0; }

  std::unique_ptr<ILogFile> Open(const std::string& path, Access access) override {
    if (OpenFault != 0) throw std::system_error(OpenFault, std::generic_category());
    if (access == Access::LockedRead) {
      if (LockFault != 0) throw std::system_error(LockFault, std::generic_category());
      if (BeforeLockedRead) BeforeLockedRead();
    }
    const auto found = m_files.find(path);
    if (found == m_files.end()) return {};
    return std::make_unique<Handle>(*this, found->second);
  }

  void Remove(const std::string& path) override { m_files.erase(path); }

  std::unique_ptr<ILogFile> Create(const std::string& path, const std::function<void(const Sink&)>& write) override {
    if (const auto meanwhile = std::exchange(BeforeCreation, {})) meanwhile();
    if (Exists(path)) return {};
    return Replace(path, write);
  }

  std::unique_ptr<ILogFile> Replace(const std::string& path, const std::function<void(const Sink&)>& write) override {
    if (ReplaceFault != 0) throw std::system_error(ReplaceFault, std::generic_category());
    const auto file = std::make_shared<File>(File{++m_last, {}});
    write([&](std::string_view bytes) {
      if (file->Bytes.size() + bytes.size() > Capacity) throw std::system_error(ENOSPC, std::generic_category());
      file->Bytes += bytes;
    });
    Step();
    m_files[path] = file;
    return std::make_unique<Handle>(*this, file);
  }

  /// As another program writes it: a file of its own.
  void Put(const std::string& path, std::string bytes) {
    m_files[path] = std::make_shared<File>(File{++m_last, std::move(bytes)});
  }
  /// As another program edits it in place.
  std::string& Bytes(const std::string& path) { return m_files.at(path)->Bytes; }

private:
  class Handle final : public ILogFile {
  public:
    Handle(MemoryLogDisk& disk, std::shared_ptr<File> file) : m_disk(disk), m_file(std::move(file)) {}
    LogFileIdentity Identity() const override { return {1, m_file->Number, m_file->Bytes.size()}; }
    LogFileIdentity WhenOpened() const override { return m_whenOpened; }
    std::size_t Read(std::uint64_t position, char* buffer, std::size_t size) const override {
      if (position >= m_file->Bytes.size()) return 0;
      return m_file->Bytes.copy(buffer, size, position);
    }
    void Write(std::uint64_t position, std::string_view bytes) override {
      std::string& file = m_file->Bytes;
      if (!m_disk.BytesToLive && position + bytes.size() <= m_disk.Capacity) { // nothing can happen on the way
        if (file.size() < position + bytes.size()) file.resize(position + bytes.size());
        file.replace(position, bytes.size(), bytes);
        m_disk.Steps += bytes.size();
        return;
      }
      for (const char byte : bytes) {
        if (position >= m_disk.Capacity) throw std::system_error(ENOSPC, std::generic_category());
        m_disk.Step();
        if (position >= file.size()) file.resize(position + 1);
        file[position++] = byte;
      }
    }
    void Truncate(std::uint64_t size) override {
      if (m_disk.TruncateFault != 0) throw std::system_error(m_disk.TruncateFault, std::generic_category());
      m_disk.Step();
      m_file->Bytes.resize(size);
    }

    void Close() override {
      if (m_disk.CloseFault != 0) throw std::system_error(m_disk.CloseFault, std::generic_category());
    }

  private:
    MemoryLogDisk& m_disk;
    std::shared_ptr<File> m_file;
    LogFileIdentity m_whenOpened = Identity();
  };

  void Step() {
    if (BytesToLive && Steps >= *BytesToLive) throw Killed{};
    ++Steps;
  }

  std::map<std::string, std::shared_ptr<File>> m_files;
  std::uint64_t m_last = 0;
};

} // namespace portico::test

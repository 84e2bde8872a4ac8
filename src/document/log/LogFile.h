#pragma once

#include "document/log/ILogDisk.h"

namespace portico {

/// The file system of this machine.
class LogDisk final : public ILogDisk {
public:
  bool Exists(const std::string& path) const override;
  std::unique_ptr<ILogFile> Open(const std::string& path, Access access) override;
  void Remove(const std::string& path) override;
  std::unique_ptr<ILogFile> Create(const std::string& path, const std::function<void(const Sink&)>& write) override;
  std::unique_ptr<ILogFile> Replace(const std::string& path, const std::function<void(const Sink&)>& write) override;
};

} // namespace portico

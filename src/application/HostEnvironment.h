#pragma once

#include "framework/errors/IErrorEnvironment.h"

#include <ctime>
#include <filesystem>

namespace portico {

/// The machine and the program as they are.
class HostEnvironment final : public IErrorEnvironment {
public:
  HostEnvironment();
  /// As if the program's file were this one.
  explicit HostEnvironment(std::filesystem::path program);

  std::tm LocalTime() const override;
  String ComputerName() const override;
  String ProgramFileName() const override;
  /// Where the program stands or, if the user cannot write there, the user's directory for its state; see OwnFiles.h.
  String ProgramDirectory() const override;
  String ProgramVersion() const override;
  String SystemMessage(std::uint32_t number) const override;
  char16_t PathSeparator() const override;
  bool AppendToFile(const String& path, const String& text) override;
  std::chrono::milliseconds Ticks() const override;
  void Sleep(std::chrono::milliseconds duration) override;

private:
  std::filesystem::path m_program;
  // Asked for several times for each query: a second is taken apart once.
  mutable std::time_t m_second = -1;
  mutable std::tm m_local{};
};

} // namespace portico

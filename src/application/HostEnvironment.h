#pragma once

#include "framework/IErrorEnvironment.h"

namespace portico {

/// The machine and the program as they are.
class HostEnvironment final : public IErrorEnvironment {
public:
  std::tm LocalTime() const override;
  String ComputerName() const override;
  String ProgramFileName() const override;
  String ProgramDirectory() const override;
  String ProgramVersion() const override;
  String SystemMessage(std::uint32_t number) const override;
  char16_t PathSeparator() const override;
  bool AppendToFile(const String& path, const String& text) override;
  std::chrono::milliseconds Ticks() const override;
  void Sleep(std::chrono::milliseconds duration) override;
};

} // namespace portico

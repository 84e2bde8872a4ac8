#pragma once

#include "framework/errors/IErrorEnvironment.h"

#include <map>
#include <vector>

namespace portico::test {

/// An error environment with fixed names, a clock that only moves when told to, and files that are remembered.
class FakeErrorEnvironment final : public IErrorEnvironment {
public:
  struct Append {
    String Path;
    String Text;
  };

  static std::tm At(int year, int month, int day, int hour, int minute, int second);

  std::tm Now = At(2004, 2, 9, 8, 5, 3);
  String Computer = u"BENCH-7";
  String Program = u"portico";
  String Version = u"1.4.2";
  String Directory = u"/opt/portico";
  char16_t Separator = u'/';
  std::map<std::uint32_t, String> SystemMessages;

  /// How many of the next appends find their file locked.
  int Refusals = 0;
  int Attempts = 0;
  std::vector<Append> Appended;
  std::vector<std::chrono::milliseconds> Sleeps;

  std::tm LocalTime() const override;
  String ComputerName() const override;
  String ProgramFileName() const override;
  String ProgramDirectory() const override;
  String ProgramVersion() const override;
  char16_t PathSeparator() const override;

  String SystemMessage(std::uint32_t number) const override;

  bool AppendToFile(const String& path, const String& text) override;

  std::chrono::milliseconds Ticks() const override;
  void Sleep(std::chrono::milliseconds duration) override;

private:
  std::chrono::milliseconds m_ticks{12345};
};

} // namespace portico::test

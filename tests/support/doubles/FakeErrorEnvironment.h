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

  static std::tm At(int year, int month, int day, int hour, int minute, int second) {
    std::tm time{};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    return time;
  }

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

  std::tm LocalTime() const override { return Now; }
  String ComputerName() const override { return Computer; }
  String ProgramFileName() const override { return Program; }
  String ProgramDirectory() const override { return Directory; }
  String ProgramVersion() const override { return Version; }
  char16_t PathSeparator() const override { return Separator; }

  String SystemMessage(std::uint32_t number) const override {
    const auto found = SystemMessages.find(number);
    return found == SystemMessages.end() ? String() : found->second;
  }

  bool AppendToFile(const String& path, const String& text) override {
    ++Attempts;
    if (Refusals > 0) {
      --Refusals;
      return false;
    }
    Appended.push_back({path, text});
    return true;
  }

  std::chrono::milliseconds Ticks() const override { return m_ticks; }
  void Sleep(std::chrono::milliseconds duration) override {
    Sleeps.push_back(duration);
    m_ticks += duration;
  }

private:
  std::chrono::milliseconds m_ticks{12345};
};

} // namespace portico::test

#include "support/doubles/FakeErrorEnvironment.h"

namespace portico::test {

std::tm FakeErrorEnvironment::At(int year, int month, int day, int hour, int minute, int second) {
  std::tm time{};
  time.tm_year = year - 1900;
  time.tm_mon = month - 1;
  time.tm_mday = day;
  time.tm_hour = hour;
  time.tm_min = minute;
  time.tm_sec = second;
  return time;
}

std::tm FakeErrorEnvironment::LocalTime() const { return Now; }

String FakeErrorEnvironment::ComputerName() const { return Computer; }

String FakeErrorEnvironment::ProgramFileName() const { return Program; }

String FakeErrorEnvironment::ProgramDirectory() const { return Directory; }

String FakeErrorEnvironment::ProgramVersion() const { return Version; }

char16_t FakeErrorEnvironment::PathSeparator() const { return Separator; }

String FakeErrorEnvironment::SystemMessage(std::uint32_t number) const {
  const auto found = SystemMessages.find(number);
  return found == SystemMessages.end() ? String() : found->second;
}

bool FakeErrorEnvironment::AppendToFile(const String& path, const String& text) {
  ++Attempts;
  if (Refusals > 0) {
    --Refusals;
    return false;
  }
  Appended.push_back({path, text});
  return true;
}

std::chrono::milliseconds FakeErrorEnvironment::Ticks() const { return m_ticks; }

void FakeErrorEnvironment::Sleep(std::chrono::milliseconds duration) {
  Sleeps.push_back(duration);
  m_ticks += duration;
}

} // namespace portico::test

#include "framework/errors/HuntERR.h"

namespace portico::HuntERR {
namespace {

using namespace std::chrono_literals;

constexpr auto RetryPause = 200ms;
constexpr auto RetryLimit = 1000ms;

/// Stands in until the program hands in its own.
class SilentEnvironment final : public IErrorEnvironment {
public:
  std::tm LocalTime() const override { return {}; }
  String ComputerName() const override { return {}; }
  String ProgramFileName() const override { return {}; }
  String ProgramDirectory() const override { return {}; }
  String ProgramVersion() const override { return {}; }
  String SystemMessage(std::uint32_t) const override { return {}; }
  char16_t PathSeparator() const override { return u'/'; }
  bool AppendToFile(const String&, const String&) override { return true; }
  std::chrono::milliseconds Ticks() const override { return {}; }
  void Sleep(std::chrono::milliseconds) override {}
};

IErrorEnvironment*& Current() {
  static SilentEnvironment silent;
  static IErrorEnvironment* current = &silent;
  if (current == nullptr) current = &silent;
  return current;
}

} // namespace

void SetEnvironment(IErrorEnvironment* environment) { Current() = environment; }

IErrorEnvironment& Environment() { return *Current(); }

void WriteErrorReport(StringView LogFile) noexcept try {
  const String report = ErrReport();
  if (report.empty()) return;
  IErrorEnvironment& environment = Environment();
  const char16_t separator = environment.PathSeparator();
  String path(LogFile);
  if (path.find(separator) == String::npos) path = environment.ProgramDirectory() + separator + path;
  const String entry = report + String(NewLine) + String(NewLine);
  const auto start = environment.Ticks();
  while (!environment.AppendToFile(path, entry)) {
    if (environment.Ticks() - start >= RetryLimit) return;
    environment.Sleep(RetryPause);
  }
} catch (...) { // a failure of the reporting itself loses the report rather than raise
  return;
}

} // namespace portico::HuntERR

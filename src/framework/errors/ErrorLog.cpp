#include "framework/errors/HuntERR.h"

namespace portico::HuntERR {
namespace {

using namespace std::chrono_literals;

constexpr auto RetryPause = 200ms;
constexpr auto RetryLimit = 1000ms;

} // namespace

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

#include "framework/errors/IErrorEnvironment.h"

namespace portico::HuntERR {
namespace {

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

} // namespace portico::HuntERR

#pragma once

#include "platform/IEventLoop.h"
#include "platform/IForm.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace portico::test {

/// A platform's event loop and forms, fresh for one test.
class FormsBench {
public:
  virtual ~FormsBench() = default;
  virtual IEventLoop& Loop() = 0;
  virtual IForms& Forms() = 0;
  /// What forms may take of the screen, which begins at 0, in form units.
  virtual double ScreenWidth() const = 0;
  virtual double ScreenHeight() const = 0;
  /// Calls as soon as the form of that name is shown modally.
  virtual void WhileModal(StringView form, std::function<void()> call) = 0;
};

/// A platform that the suites run with.
struct FormsBenchKind {
  const char* name;
  std::unique_ptr<FormsBench> (*make)();
};

/// To be defined by each program that runs the suites.
std::vector<FormsBenchKind> AllFormsBenches();

inline void PrintTo(const FormsBenchKind& kind, std::ostream* stream) { *stream << kind.name; }

inline std::string FormsBenchName(const testing::TestParamInfo<FormsBenchKind>& info) { return info.param.name; }

/// Runs each test on a bench of its own.
class FormsContract : public testing::TestWithParam<FormsBenchKind> {
protected:
  IEventLoop& Loop() const { return m_bench->Loop(); }
  IForms& Forms() const { return m_bench->Forms(); }
  FormsBench& Bench() const { return *m_bench; }

  /// Takes turns until a timer of this many milliseconds has fired.
  void Wait(std::int32_t milliseconds) const {
    bool isOver = false;
    const auto timer = Loop().MakeTimer();
    timer->Timer().Connect([&] { isOver = true; });
    timer->Interval(milliseconds);
    timer->Enabled(true);
    while (!isOver) Loop().WaitForEvent();
  }

private:
  std::unique_ptr<FormsBench> m_bench = GetParam().make();
};

} // namespace portico::test

#pragma once

#include "platform/IRichTextControl.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace portico::test {

/// A rich text box in a window, with a user in front of it.
class UserEditBench {
public:
  virtual ~UserEditBench() = default;
  virtual IRichTextControl& Box() = 0;
  /// Where the caret is, as one step.
  virtual void Type(StringView text) = 0;
  virtual void Undo() = 0;
  /// A key alone, which has its code in KeyCodes.h: Up, Down, Page Up, Page Down, Return, Tab or Escape.
  virtual void Press(std::int32_t code) = 0;
  /// Moves the caret one to the left.
  virtual void Left() = 0;
  /// Something else in the window gets the focus.
  virtual void Leave() = 0;
  virtual bool HasFocus() = 0;
};

/// A platform that the suite runs with.
struct UserEditBenchKind {
  const char* name;
  std::unique_ptr<UserEditBench> (*make)();
};

/// To be defined by each program that runs the suite.
std::vector<UserEditBenchKind> AllUserEditBenches();

inline void PrintTo(const UserEditBenchKind& kind, std::ostream* stream) { *stream << kind.name; }

inline std::string UserEditBenchName(const testing::TestParamInfo<UserEditBenchKind>& info) { return info.param.name; }

} // namespace portico::test

#pragma once

#include "framework/errors/ErrorRecord.h"

#include <ctime>

namespace portico::HuntERR {

/// A standard error that was stopped where it arose, and that nobody has asked for yet.
struct StoppedError {
  std::int32_t Number = 0; ///< 0: none
  StringView Label;
  String Value;
  std::tm Time{};
  void (*TakeIn)(const StoppedError& stopped) = nullptr; ///< puts it on record
};

/// All that is remembered of errors; the program's one. The functions in HuntERR.h and Raise.h are the way to it.
struct ErrorState {
  ErrorRecord Current;
  ErrorRecord Saved;
  bool Preserved = false;
  LazyText Report;
  bool HasReport = false;
  String Collected;     ///< by `Check` with number 0
  StoppedError Pending; ///< newer than all of these
};

/// As it lies there.
ErrorState& KnownErrors();
/// The same once what is pending is on record.
ErrorState& SettledErrors();

} // namespace portico::HuntERR

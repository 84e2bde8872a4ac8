#pragma once

#include "framework/errors/ErrorReport.h"
#include "framework/errors/Refusal.h"

namespace portico::HuntERR {

/// All that is remembered of errors; the program's one. The functions in HuntERR.h and Raise.h are the way to it.
struct ErrorState {
  ErrorRecord Current;
  ErrorRecord Saved;
  bool Preserved = false;
  LazyText Report;
  bool HasReport = false;
  String Collected; ///< by `Check` with number 0
  Refusal Pending;  ///< newer than all of these: an error that was stopped, and that nobody has asked for yet
};

/// As it lies there.
ErrorState& KnownErrors();
/// The same once what is pending is on record.
ErrorState& SettledErrors();

/// What `ErrorIn` does, for an error that may have passed there a while ago.
LazyText PassTail(const ErrorReport::Passage& passage, unsigned Flags);

} // namespace portico::HuntERR

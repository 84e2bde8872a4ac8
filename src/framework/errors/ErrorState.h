#pragma once

#include "framework/errors/ErrorRecord.h"

#include <memory>

namespace portico::HuntERR {

/// An error that was stopped, and that nobody has asked for yet.
class PendingError {
public:
  virtual ~PendingError() = default;
  /// Puts it on record.
  virtual void Record() const = 0;
};

/// All that is remembered of errors; the program's one. The functions in HuntERR.h and Raise.h are the way to it.
struct ErrorState {
  ErrorRecord Current;
  ErrorRecord Saved;
  bool Preserved = false;
  LazyText Report;
  bool HasReport = false;
  String Collected;                      ///< by `Check` with number 0
  std::unique_ptr<PendingError> Pending; ///< newer than all of these
};

/// As it lies there.
ErrorState& KnownErrors();
/// The same once what is pending is on record.
ErrorState& SettledErrors();

} // namespace portico::HuntERR

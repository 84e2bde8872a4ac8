#pragma once

#include "framework/errors/ErrorRecord.h"
#include "framework/errors/IErrorEnvironment.h"
#include "framework/errors/Raise.h"
#include "framework/errors/Value.h"

#include <concepts>
#include <cstddef>
#include <ctime>
#include <initializer_list>
#include <optional>

namespace portico {

/// One discipline for all failures: `Check` where something fails, a tail that calls `ErrorIn` in every procedure, and
/// a handler at the top that shows or files the report. On its way up an error's description grows into a report: a
/// header from the place of failure, then a line for each procedure that it passed. One thread is assumed throughout.
namespace HuntERR {

/// Flags of `ErrorIn`.
inline constexpr unsigned RaiseAgain = 0x01;
inline constexpr unsigned AddToReport = 0x02;
/// The two combinations in use: pass the error on, and stop it here. Their other bits concern transactions and web
/// requests, which this program never has.
inline constexpr unsigned PassFlags = 0x23;
inline constexpr unsigned StopFlags = 0x2A;

/// What `Check` does when its condition does not hold.
void FailCheck(std::int32_t ErrNum, StringView Message, const Params& Values = {}, StringView HelpFile = {},
               std::int32_t HelpContext = 0);

/// Raises `ErrNum` with `Message` and the source "HuntERR.Check" unless the condition holds. "||" in the message is a
/// line break. With `ErrNum` 0 nothing is raised: the message is collected for the next report.
inline void Check(bool Condition, std::int32_t ErrNum, StringView Message) {
  if (!Condition) FailCheck(ErrNum, Message);
}

/// The same for a literal, whose length nobody counts as long as all is well.
template <std::size_t Size>
void Check(bool Condition, std::int32_t ErrNum, const char16_t (&Message)[Size]) {
  if (!Condition) FailCheck(ErrNum, {Message, Size - 1});
}

/// The same; %1, %2 … in the message are replaced by the text forms of `Values`.
inline void Check(bool Condition, std::int32_t ErrNum, StringView Message, const Params& Values,
                  StringView HelpFile = {}, std::int32_t HelpContext = 0) {
  if (!Condition) FailCheck(ErrNum, Message, Values, HelpFile, HelpContext);
}

/// The same for a message that is worth composing only on failure.
template <std::invocable Composer>
void Check(bool Condition, std::int32_t ErrNum, Composer&& Message) {
  if (!Condition) FailCheck(ErrNum, Message());
}

/// The tail. `MethodName` is a label of the form Class.Method(Param1,Param2), `Values` the values of those parameters.
/// Returns the report; with `RaiseAgain` in the flags it does not return. `When` is the time of an error that passed
/// there a while ago.
LazyText ErrorIn(StringView MethodName, const Params& Values, unsigned Flags, const std::optional<std::tm>& When = {});

/// Copies the current error to the saved fields, unless a copy is held or the current number is 0.
void ErrPreserve();
/// Writes the saved fields back to the current error.
void ErrRestore();

/// The saved fields. After a tail that stopped an error `ErrDescription` is the whole report.
std::int32_t ErrNumber();
String ErrSource();
String ErrDescription();
/// The saved number lies in the range for which no report is made.
bool IsExpectedError();
/// The report under construction; else the current description, if a tail has made it; else empty.
String ErrReport();

/// Appends the report to a file, beside the program unless the name has a path separator in it; tries again every
/// 200 ms for one second when the file cannot be opened, then gives up. Never raises.
void WriteErrorReport(StringView LogFile) noexcept;

/// Writes the current error and its held copy; what a tail does before anything else.
void Load(const Error& error);
/// The current error.
const ErrorRecord& Err();
/// A standard error that is stopped in the procedure in which it arises: what raising and stopping it would leave
/// behind, without unwinding, and put on record only when somebody asks. The label must be a literal.
void RecordStandard(std::int32_t Number, StringView Label, StringView Value);
/// Forgets everything: current error, held copy, report, collected text.
void Reset();

} // namespace HuntERR

// Tails, each to be called inside `catch (...)` of a function-try-block. `Quit` passes all of them without a trace;
// exceptions of the standard library count as standard numbers (a bad cast as `TypeMismatch`, out of range as
// `BadSubscript`, out of memory as `OutOfMemory`).

/// Adds a stack line and passes the error on.
[[noreturn]] void PassOn(StringView Label, const Params& Values = {});
/// Adds a stack line and stops the error here.
void StopHere(StringView Label, const Params& Values = {});
/// Tail of a constructor: the object's creator fails too, and its tail goes on with the same report.
[[noreturn]] void FailConstruction(StringView Label);
/// Tail of a destructor: records, and swallows because a destructor must not throw.
void SwallowInDestructor(StringView Label) noexcept;

/// An error that is stopped where it arises: recorded as `StopHere` would, without unwinding.
void RecordHere(ErrorRecord record, StringView Label, const Params& Values = {});

} // namespace portico

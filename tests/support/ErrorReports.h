#pragma once

#include "framework/errors/HuntERR.h"

#include <cstdint>
#include <vector>

namespace portico::test {

/// The calls that a report's stack lines name, deepest first, without the padding.
std::vector<String> CallStack(StringView report);
std::vector<String> CallStack(const ErrorRecord& error);

/// The labels that the calls of a report were made from, deepest first: the parameter names without their values.
std::vector<String> Labels(StringView report);
std::vector<String> Labels(const ErrorRecord& error);

/// The description that an error was raised with, out of its report.
String FirstDescription(StringView report);
String FirstDescription(const ErrorRecord& error);

/// The error numbers of the program's own block, as they are written in hexadecimal.
constexpr std::int32_t Hex(std::uint32_t number) { return static_cast<std::int32_t>(number); }

/// What an error tells that has unwound: its number, and from its report where it began and which tails it has passed.
struct Failure {
  std::int32_t Number = 0;
  String Text;                  ///< as it was raised
  String Source;                ///< as it was raised
  std::vector<String> Trail;    ///< the calls of the stack lines, deepest first
  std::vector<String> Labels{}; ///< the same without the parameters' values, as the tails spell them
};

Failure ReadReport(const ErrorRecord& record);
/// The error that was recorded and stopped last.
Failure RecordedFailure();

/// Fails the test, since a call that was to raise an error has not.
ErrorRecord NothingRaised();

/// The error that the call raises; a call that raises none fails the test.
template <class Call>
ErrorRecord Raised(Call&& call) {
  try {
    call();
  } catch (const Error& error) {
    return error.Record();
  }
  return NothingRaised();
}

/// The same read, and of a constructor's error what it holds.
template <class Call>
Failure FailureOf(Call&& call) {
  try {
    call();
  } catch (const Error& error) {
    return ReadReport(error.Held() != nullptr ? *error.Held() : error.Record());
  }
  return ReadReport(NothingRaised());
}

} // namespace portico::test

#pragma once

#include "framework/HuntERR.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace portico::support {

/// What an error tells that has unwound: its number, and from its report where it began and which tails it has passed.
struct Failure {
  std::int32_t Number = 0;
  String Text;               ///< as it was raised
  String Source;             ///< as it was raised
  std::vector<String> Trail; ///< the calls of the stack lines, innermost first
};

inline String Between(const String& text, StringView from, StringView to) {
  const auto start = text.find(from);
  if (start == String::npos) return {};
  const auto end = text.find(to, start + from.size());
  return text.substr(start + from.size(), end == String::npos ? end : end - start - from.size());
}

inline Failure ReadReport(const ErrorRecord& record) {
  const String& description = record.Description;
  if (record.Source != u"HuntERR.ErrorIn") return {record.Number, description, record.Source, {}};
  Failure failure{record.Number,
                  Between(description, u"\r\n  Description: ", u"\r\n"),
                  Between(description, u"\r\n  Source: ", u" \r\n"),
                  {}};
  for (const StringView line : Split(description, u"\r\n")) {
    constexpr StringView mark = u"  Call Stack: ";
    if (line.substr(0, mark.size()) != mark) continue;
    const auto end = line.find_last_not_of(u" -");
    failure.Trail.emplace_back(line.substr(mark.size(), end + 1 - mark.size()));
  }
  return failure;
}

/// The error that the act raises.
template <class Act>
Failure FailureOf(Act&& act) {
  try {
    act();
  } catch (const Error& error) {
    return ReadReport(error.Held() != nullptr ? *error.Held() : error.Record());
  }
  ADD_FAILURE() << "nothing was raised";
  return {};
}

/// The error that was recorded and stopped last.
inline Failure RecordedFailure() {
  ErrorRecord record;
  record.Number = HuntERR::ErrNumber();
  record.Source = HuntERR::ErrSource();
  record.Description = HuntERR::ErrDescription();
  return ReadReport(record);
}

/// A number with the high bit set, as it is written.
constexpr std::int32_t Signed(std::uint32_t number) { return static_cast<std::int32_t>(number); }

} // namespace portico::support

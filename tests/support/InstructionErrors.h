#pragma once

#include "framework/errors/HuntERR.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace portico::support {

/// What an error tells that has unwound: its number, and from its report where it began and which tails it has passed.
struct Failure {
  std::int32_t Number = 0;
  String Text;                  ///< as it was raised
  String Source;                ///< as it was raised
  std::vector<String> Trail;    ///< the calls of the stack lines, innermost first
  std::vector<String> Labels{}; ///< the same without the parameters' values, as the tails spell them
};

inline String Between(const String& text, StringView from, StringView to) {
  const auto start = text.find(from);
  if (start == String::npos) return {};
  const auto end = text.find(to, start + from.size());
  return text.substr(start + from.size(), end == String::npos ? end : end - start - from.size());
}

/// A call of a stack line without values: that of F(A='1', B={X}) is F(A,B).
inline String LabelOf(const String& call) {
  String label;
  String::size_type at = 0;
  while (at < call.size()) {
    const auto equals = std::min(call.find(u'=', at), call.size());
    label.append(call, at, equals - at);
    if (equals == call.size()) break;
    const StringView closing = call[equals + 1] == u'{' ? u"}" : call[equals + 1] == u'\'' ? u"'" : u",)";
    const auto end = std::min(call.find_first_of(closing, equals + 2), call.size());
    at = closing.size() == 1 ? end + 1 : end;
  }
  return ReplaceAll(label, u", ", u",");
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
    failure.Labels.push_back(LabelOf(failure.Trail.back()));
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

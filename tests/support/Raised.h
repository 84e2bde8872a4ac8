#pragma once

#include "framework/errors/HuntERR.h"

#include <gtest/gtest.h>

#include <vector>

namespace portico::test {

/// The error that the call raises; a call that raises none fails the test.
template <class Call>
ErrorRecord Raised(Call&& call) {
  try {
    call();
  } catch (const Error& error) {
    return error.Record();
  }
  ADD_FAILURE() << "No error was raised.";
  return {};
}

/// The calls that a report's stack lines name, deepest first, without the padding.
inline std::vector<String> CallStack(StringView report) {
  constexpr StringView mark = u"  Call Stack: ";
  std::vector<String> calls;
  for (StringView line : Split(report, NewLine)) {
    if (line.substr(0, mark.size()) != mark) continue;
    const auto last = line.find_last_not_of(u"- ");
    calls.emplace_back(line.substr(mark.size(), last + 1 - mark.size()));
  }
  return calls;
}

inline std::vector<String> CallStack(const ErrorRecord& error) { return CallStack(error.Description.Text()); }

/// The labels that the calls of a report were made from: the parameter names as written, without their values. The
/// values must hold no ", ".
inline std::vector<String> Labels(StringView report) {
  std::vector<String> labels;
  for (const String& call : CallStack(report)) {
    const auto bracket = call.find(u'(');
    String label = call.substr(0, bracket + 1);
    for (StringView entry : Split(StringView(call).substr(bracket + 1, call.size() - bracket - 2), u", ")) {
      if (label.back() != u'(') label += u',';
      label += entry.substr(0, entry.find(u'='));
    }
    labels.push_back(label + u")");
  }
  return labels;
}

inline std::vector<String> Labels(const ErrorRecord& error) { return Labels(error.Description.Text()); }

/// The description that an error was raised with, out of its report.
inline String FirstDescription(StringView report) { return String(report.substr(0, report.find(u" \r\n  Time='"))); }

inline String FirstDescription(const ErrorRecord& error) { return FirstDescription(error.Description.Text()); }

/// The error numbers of the program's own block, as they are written in hexadecimal.
constexpr std::int32_t Hex(std::uint32_t number) { return static_cast<std::int32_t>(number); }

} // namespace portico::test

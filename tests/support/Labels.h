#pragma once

#include "support/Raised.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace portico::test {

/// Whether a call of a report bears the source label: its method to the letter, and its parameters' names, each with a
/// value behind it, or as the label writes them if the values are not known. A label with empty brackets names none of
/// its values.
inline bool Bears(StringView call, StringView label) {
  const auto bracket = label.find(u'(');
  const String method = String(label.substr(0, bracket)) + u"(";
  if (call.substr(0, method.size()) != method || call.back() != u')') return false;
  const StringView shown = call.substr(method.size(), call.size() - method.size() - 1);
  const StringView names =
      bracket == StringView::npos ? StringView{} : label.substr(bracket + 1, label.size() - bracket - 2);
  if (shown == names || (names.empty() && bracket != StringView::npos)) return true;
  std::size_t from = 0;
  for (StringView name : Split(names, u",")) {
    const String field = (from == 0 ? u"" : u", ") + String(name) + u"=";
    const auto found = shown.find(field, from);
    if (found == StringView::npos || (from == 0 && found != 0)) return false;
    from = found + field.size();
  }
  return true;
}

/// That an error has passed exactly these labels, deepest first.
inline void ExpectTrail(const String& report, std::initializer_list<StringView> labels) {
  const auto calls = CallStack(report);
  ASSERT_EQ(calls.size(), labels.size()) << ToUtf8(report);
  for (std::size_t i = 0; i < calls.size(); ++i) {
    EXPECT_TRUE(Bears(calls[i], labels.begin()[i])) << ToUtf8(calls[i]) << "\ninstead of\n"
                                                    << ToUtf8(labels.begin()[i]);
  }
}

inline void ExpectTrail(const ErrorRecord& error, std::initializer_list<StringView> labels) {
  ExpectTrail(error.Description.Text(), labels);
}

/// The number and text that an error was raised with.
inline void ExpectError(const ErrorRecord& error, std::int32_t number, StringView text) {
  EXPECT_EQ(error.Number, number);
  EXPECT_EQ(ToUtf8(FirstDescription(error)), ToUtf8(text));
}

} // namespace portico::test

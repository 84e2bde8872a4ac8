#include "support/Labels.h"

namespace portico::test {
namespace {

/// Whether a text is the text form of one value, and not of several.
bool IsOneValue(StringView text) {
  if (text.starts_with(u'\'')) return text.size() > 1 && text.ends_with(u'\'') && text.find(u"', ") == StringView::npos;
  if (text.starts_with(u'{')) return text.find(u'}') + 1 == text.size();
  return ReadNumber(text).has_value();
}

} // namespace

bool Bears(StringView call, StringView label) {
  const auto bracket = label.find(u'(');
  const String method = String(label.substr(0, bracket)) + u"(";
  if (call.substr(0, method.size()) != method || call.back() != u')') return false;
  StringView shown = call.substr(method.size(), call.size() - method.size() - 1);
  const StringView names =
      bracket == StringView::npos ? StringView{} : label.substr(bracket + 1, label.size() - bracket - 2);
  if (shown == names) return true;
  if (names.empty()) return bracket != StringView::npos && IsOneValue(shown); // which is shown without a name
  const auto fields = Split(names, u",");
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const String field = String(fields[i]) + u"=";
    if (shown.substr(0, field.size()) != field) return false;
    shown.remove_prefix(field.size());
    const bool last = i + 1 == fields.size();
    const auto end = last ? shown.size() : shown.find(u", " + String(fields[i + 1]) + u"=");
    if (end == StringView::npos || !IsOneValue(shown.substr(0, end))) return false;
    shown.remove_prefix(last ? end : end + 2);
  }
  return true;
}

void ExpectTrail(const String& report, std::initializer_list<StringView> labels) {
  const auto calls = CallStack(report);
  ASSERT_EQ(calls.size(), labels.size()) << ToUtf8(report);
  for (std::size_t i = 0; i < calls.size(); ++i) {
    EXPECT_TRUE(Bears(calls[i], labels.begin()[i])) << ToUtf8(calls[i]) << "\ninstead of\n"
                                                    << ToUtf8(labels.begin()[i]);
  }
}

void ExpectTrail(const ErrorRecord& error, std::initializer_list<StringView> labels) {
  ExpectTrail(error.Description.Text(), labels);
}

void ExpectError(const ErrorRecord& error, std::int32_t number, StringView text) {
  EXPECT_EQ(error.Number, number);
  EXPECT_EQ(ToUtf8(FirstDescription(error)), ToUtf8(text));
}

} // namespace portico::test

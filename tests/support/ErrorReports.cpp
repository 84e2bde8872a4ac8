#include "support/ErrorReports.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace portico::test {
namespace {

String Between(StringView text, StringView from, StringView to) {
  const auto start = text.find(from);
  if (start == StringView::npos) return {};
  const auto end = text.find(to, start + from.size());
  return String(text.substr(start + from.size(), end == StringView::npos ? end : end - start - from.size()));
}

/// A call of a stack line without values: that of F(A='1', B={X}) is F(A,B).
String LabelOf(const String& call) {
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

} // namespace

std::vector<String> CallStack(StringView report) {
  constexpr StringView mark = u"  Call Stack: ";
  std::vector<String> calls;
  for (const StringView line : Split(report, NewLine)) {
    if (line.substr(0, mark.size()) != mark) continue;
    const auto last = line.find_last_not_of(u"- ");
    calls.emplace_back(line.substr(mark.size(), last + 1 - mark.size()));
  }
  return calls;
}

std::vector<String> CallStack(const ErrorRecord& error) { return CallStack(error.Description.Text()); }

std::vector<String> Labels(StringView report) {
  auto calls = CallStack(report);
  std::transform(calls.begin(), calls.end(), calls.begin(), LabelOf);
  return calls;
}

std::vector<String> Labels(const ErrorRecord& error) { return Labels(error.Description.Text()); }

String FirstDescription(StringView report) { return String(report.substr(0, report.find(u" \r\n  Time='"))); }

String FirstDescription(const ErrorRecord& error) { return FirstDescription(error.Description.Text()); }

Failure ReadReport(const ErrorRecord& record) {
  const String description = record.Description.Text();
  if (record.Source != u"HuntERR.ErrorIn") return {record.Number, description, record.Source, {}};
  return {record.Number, Between(description, u"\r\n  Description: ", NewLine),
          Between(description, u"\r\n  Source: ", u" \r\n"), CallStack(description), Labels(description)};
}

Failure RecordedFailure() {
  ErrorRecord record;
  record.Number = HuntERR::ErrNumber();
  record.Source = HuntERR::ErrSource();
  record.Description = HuntERR::ErrDescription();
  return ReadReport(record);
}

ErrorRecord NothingRaised() {
  ADD_FAILURE() << "No error was raised.";
  return {};
}

} // namespace portico::test

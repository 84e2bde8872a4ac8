#include "framework/errors/ErrorReport.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/IErrorEnvironment.h"

#include <ctime>
#include <optional>

namespace portico::ErrorReport {
namespace {

constexpr StringView HeaderTemplate =
    u"%Descr% %nl%  Time='%Time%' App='%App%:%Ver%' ADO-version='%ADOVersion%' Computer='%Comp%' %nl%"
    u"  Method: %MethodName% %nl%"
    u"  Number: %ErrNum% = &H%ErrHex% = vbObjectError %ErrNumRel1% = ERRMAP_APP_FIRST %ErrNumRel2% %ErrStd%%nl%"
    u"  Source: %Source% %nl%  Description: %Descr%%nl%";

constexpr std::size_t StackLineWidth = 100;
constexpr std::size_t LongestShownValue = 40;
/// The operating system's numbers that mean "no error" and "variable not found"; neither is worth a line.
constexpr std::uint32_t NoSystemError = 0;
constexpr std::uint32_t SystemVariableNotFound = 203;

String TwoDigits(int number) {
  const String digits = ToText(std::int64_t{number});
  return digits.size() < 2 ? u"0" + digits : digits;
}

/// In the form "Mm/Dd/yy Hh:Nn:Ss".
String TimeText(const std::tm& time) {
  return TwoDigits(time.tm_mon + 1) + u"/" + TwoDigits(time.tm_mday) + u"/" + TwoDigits(time.tm_year % 100) + u" " +
         TwoDigits(time.tm_hour) + u":" + TwoDigits(time.tm_min) + u":" + TwoDigits(time.tm_sec);
}

String Distance(std::int32_t number, std::int32_t from) {
  const std::int64_t distance = std::int64_t{number} - from;
  return distance < 0 ? u"- " + ToText(-distance) : u"+ " + ToText(distance);
}

String Header(const ErrorRecord& error, const std::tm& time, StringView method) {
  IErrorEnvironment& environment = HuntERR::Environment();
  // The template's own percent signs step aside, so that one in a value is not read as a field.
  constexpr StringView mark = u"\u0008";
  String text = ReplaceAll(HeaderTemplate, u"%", mark);
  const auto fill = [&](StringView field, StringView value) {
    text = ReplaceAll(text, String(mark).append(field).append(mark), value);
  };
  fill(u"nl", NewLine);
  fill(u"MethodName", method);
  fill(u"Comp", environment.ComputerName());
  fill(u"Time", TimeText(time));
  fill(u"App", environment.ProgramFileName());
  fill(u"Ver", environment.ProgramVersion());
  fill(u"ADOVersion", {}); // no database component exists here
  fill(u"ErrNum", ToText(std::int64_t{error.Number}));
  fill(u"ErrHex", ToHexText(static_cast<std::uint32_t>(error.Number)));
  fill(u"ErrNumRel1", Distance(error.Number, ErrorNumber::ApplicationBase));
  fill(u"ErrNumRel2", Distance(error.Number, ErrorNumber::ERRMAP_APP_FIRST));
  fill(u"ErrStd", error.Number == ErrorNumber::ERRMAP_APP_FIRST ? u"= ERR_GENERAL" : u"");
  fill(u"Source", error.Source);
  fill(u"Descr", error.Description.Text());
  return ReplaceAll(text, mark, u"%");
}

String SystemErrorLine(std::uint32_t number) {
  if (number == NoSystemError || number == SystemVariableNotFound) return {};
  String message = HuntERR::Environment().SystemMessage(number);
  std::erase_if(message, [](char16_t unit) { return unit == u'\r' || unit == u'\n'; });
  return u"  API Error: (" + ToText(std::int64_t{number}) + u") " + message + String(NewLine);
}

bool BeginsLikeXml(StringView text) { return EqualNoCase(text.substr(0, 3), u"xml") || text.substr(0, 5) == u"<?xml"; }

/// A call as the stack line shows it, and the lines behind it that hold what was too long for it.
struct Call {
  String Parameters;
  String LongValues;
};

Call DescribeCall(StringView parameterNames, const Params& values) {
  Call call;
  if (values.empty()) call.Parameters = parameterNames; // values that are not known leave the names as written
  const auto names = Split(parameterNames, u",");
  for (std::size_t i = 0; i < values.size(); ++i) {
    const StringView name = i < names.size() ? names[i] : StringView{};
    String shown = values[i].TextForm();
    if (const auto raw = values[i].AsText()) {
      const String text = BeginsLikeXml(*raw) ? ReplaceAll(*raw, u"><", u">\r\n<") : String(*raw);
      if (text.size() > LongestShownValue || text.find_first_of(NewLine) != String::npos) {
        shown = u"{Text}";
        call.LongValues.append(u"    Value Of ").append(name).append(u":").append(NewLine);
        call.LongValues.append(text).append(NewLine);
      }
    }
    if (i > 0) call.Parameters += u", ";
    if (!name.empty()) call.Parameters.append(name).append(u"=");
    call.Parameters += shown;
  }
  return call;
}

String StackLine(StringView method, StringView parameters, std::int32_t line) {
  String text = u"  Call Stack: ";
  text.append(method).append(u"(").append(parameters).append(u")");
  if (line != 0) text.append(u"  at Line ").append(ToText(std::int64_t{line}));
  text += u' ';
  if (text.size() < StackLineWidth) text.append(StackLineWidth - text.size(), u'-');
  return text.append(NewLine);
}

} // namespace

LazyText Compose(const ErrorRecord& error, bool passedBefore, const Passage& passage, const String& collected) {
  const auto bracket = passage.MethodName.find(u'(');
  String method(passage.MethodName.substr(0, bracket));
  String names(bracket == StringView::npos ? StringView{} : passage.MethodName.substr(bracket + 1));
  if (!names.empty() && names.back() == u')') names.pop_back();

  // Values are described now: an object may be gone, or have changed, by the time that the report is read.
  Call call = DescribeCall(names, passage.Values);
  std::optional<std::tm> time;
  if (!passedBefore) time = passage.Time ? *passage.Time : HuntERR::Environment().LocalTime();

  return LazyText([error, time, method = std::move(method), call = std::move(call), collected] {
    String report =
        time ? Header(error, *time, method) + SystemErrorLine(error.LastDllError) : error.Description.Text();
    report += StackLine(method, call.Parameters, error.Erl);
    if (!collected.empty()) report.append(collected).append(NewLine);
    return report + call.LongValues;
  });
}

} // namespace portico::ErrorReport

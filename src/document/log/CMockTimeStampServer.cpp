#include "document/log/CMockTimeStampServer.h"

#include "document/log/LogStamps.h"
#include "framework/errors/HuntERR.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace portico {
namespace {

/// At least so many digits.
void AppendPadded(String& text, std::int32_t number, std::ptrdiff_t width) {
  std::array<char16_t, 10> digits{}; // of the largest number
  const auto end = digits.end();
  auto first = end;
  for (; number > 0 || end - first < width; number /= 10) *--first = static_cast<char16_t>(u'0' + number % 10);
  text.append(first, static_cast<std::size_t>(end - first));
}

bool IsSameSecond(const std::tm& a, const std::tm& b) {
  return a.tm_sec == b.tm_sec && a.tm_min == b.tm_min && a.tm_hour == b.tm_hour && a.tm_mday == b.tm_mday &&
         a.tm_mon == b.tm_mon && a.tm_year == b.tm_year;
}

} // namespace

CMockTimeStampServer::CMockTimeStampServer() try { AdvanceSequence(); } catch (...) {
  FailConstruction(u"CMockTimeStampServer.Class_Initialize");
}

String CMockTimeStampServer::TimeStamp() try {
  AdvanceSequence();
  constexpr std::size_t usualLength = 34;
  String stamp;
  stamp.reserve(usualLength);
  stamp.append(m_secondText).push_back(u'.');
  SequenceText(stamp);
  return stamp.append(TimeZoneText());
} catch (...) {
  PassOn(u"CMockTimeStampServer.ITimeStamp_TimeStamp");
}

String CMockTimeStampServer::CurrentSecondText(const std::tm& second) {
  constexpr std::int32_t firstYear = 1900; // of std::tm
  String text;
  AppendPadded(text, second.tm_year + firstYear, 4);
  for (const auto& [before, number] :
       {std::pair(u'-', second.tm_mon + 1), std::pair(u'-', second.tm_mday), std::pair(u'T', second.tm_hour),
        std::pair(u':', second.tm_min), std::pair(u':', second.tm_sec)}) {
    text += before;
    AppendPadded(text, number, 2);
  }
  return text;
}

void CMockTimeStampServer::SequenceText(String& stamp) const { AppendPadded(stamp, m_sequence, 9); }

void CMockTimeStampServer::AdvanceSequence() {
  EnterCurrentSecond();
  m_highest = std::max(m_highest, ++m_sequence);
}

void CMockTimeStampServer::EnterCurrentSecond() {
  const std::tm now = HuntERR::Environment().LocalTime();
  if (!m_secondText.empty() && IsSameSecond(now, m_second)) return;
  m_second = now;
  m_secondText = CurrentSecondText(now);
  m_sequence = m_secondText > m_latestText ? NoneYet : m_highest;
  m_latestText = std::max(m_latestText, m_secondText);
}

void CMockTimeStampServer::TakeUp(const LogStamps& stamps) {
  EnterCurrentSecond();
  m_sequence = std::max(m_sequence, stamps.HighestFrom(ToUtf8(m_secondText)));
  m_latestText = std::max(m_latestText, FromAscii(stamps.Latest()));
  m_highest = std::max(m_highest, stamps.HighestFrom({}));
}

} // namespace portico

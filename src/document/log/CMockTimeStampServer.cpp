#include "document/log/CMockTimeStampServer.h"

#include "document/log/LogStamps.h"
#include "framework/errors/HuntERR.h"

#include <algorithm>
#include <cstddef>

namespace portico {
namespace {

String Padded(std::int32_t number, std::size_t width) {
  const String digits = ToText(std::int64_t{number});
  return String(width - std::min(width, digits.size()), u'0') + digits;
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
  String stamp;
  const String sequence = SequenceText();
  const StringView zone = TimeZoneText();
  stamp.reserve(m_secondText.size() + 1 + sequence.size() + zone.size());
  return stamp.append(m_secondText).append(u".").append(sequence).append(zone);
} catch (...) {
  PassOn(u"CMockTimeStampServer.ITimeStamp_TimeStamp");
}

String CMockTimeStampServer::CurrentSecondText(const std::tm& second) {
  constexpr std::int32_t firstYear = 1900; // of std::tm
  return Padded(second.tm_year + firstYear, 4) + u"-" + Padded(second.tm_mon + 1, 2) + u"-" +
         Padded(second.tm_mday, 2) + u"T" + Padded(second.tm_hour, 2) + u":" + Padded(second.tm_min, 2) + u":" +
         Padded(second.tm_sec, 2);
}

String CMockTimeStampServer::SequenceText() const { return Padded(m_sequence, 9); }

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

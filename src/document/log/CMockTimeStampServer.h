#pragma once

#include "document/entities/ITimeStamp.h"

#include <cstdint>
#include <ctime>

namespace portico {

class LogStamps;

/// Draws stamps from the local clock of the error environment and a sequence number that starts again in every second
/// that is later than all before. When the clock has gone back, the number goes on from the highest of all instead.
///
/// A stamp reads 2004-11-01T16:42:09.000000003-5:00. Its zone is the same whatever the machine's own zone is.
class CMockTimeStampServer final : public ITimeStamp {
public:
  /// Advances once, so that the first stamp of the same second has the number 1.
  CMockTimeStampServer();
  StringView ClassName() const override { return u"CMockTimeStampServer"; }
  String TimeStamp() override;
  /// No stamp of these is drawn from now on. Those of seconds that have gone by raise no number unless the clock goes
  /// back.
  void TakeUp(const LogStamps& stamps);

private:
  static constexpr std::int32_t NoneYet = -1;

  /// yyyy-mm-ddTHh:Nn:Ss.
  static String CurrentSecondText(const std::tm& second);
  /// At least nine digits, behind what is there.
  void SequenceText(String& stamp) const;
  static StringView TimeZoneText() { return u"-5:00"; }
  void AdvanceSequence();
  /// Without drawing a stamp.
  void EnterCurrentSecond();

  std::tm m_second{};
  String m_secondText; // of `m_second`; empty until the first second is seen
  String m_latestText; // of all seconds; texts compare as their times do
  std::int32_t m_sequence = NoneYet;
  std::int32_t m_highest = NoneYet; // of all seconds
};

} // namespace portico

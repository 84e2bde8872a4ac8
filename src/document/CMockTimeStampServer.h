#pragma once

#include "document/ITimeStamp.h"

#include <cstdint>
#include <ctime>

namespace portico {

/// Draws stamps from the local clock of the error environment and a sequence number that starts again in every second.
///
/// A stamp reads 2004-11-01T16:42:09.000000003-5:00. Its zone is the same whatever the machine's own zone is.
class CMockTimeStampServer final : public ITimeStamp {
public:
  /// Advances once, so that the first stamp of the same second has the number 1.
  CMockTimeStampServer();
  StringView ClassName() const override { return u"CMockTimeStampServer"; }
  String TimeStamp() override;

private:
  /// yyyy-mm-ddTHh:Nn:Ss.
  static String CurrentSecondText(const std::tm& second);
  /// At least nine digits.
  String SequenceText() const;
  static StringView TimeZoneText() { return u"-5:00"; }
  void AdvanceSequence();

  std::tm m_second{};
  String m_secondText; // of `m_second`; empty until the first second is seen
  std::int32_t m_sequence = 0;
};

} // namespace portico

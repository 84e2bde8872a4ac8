#pragma once

#include "document/log/LogElement.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace portico {

/// How the second of a stamp is written; `d` stands for a digit.
inline constexpr std::string_view StampSecondForm = "dddd-dd-ddTdd:dd:dd";
/// The text is as long as the form and has a digit at each `d`, and the form's own characters elsewhere.
bool HasStampForm(std::string_view text, std::string_view form);

/// What the stamps of a log mean to whoever draws further ones. Stamps of another form, and those whose number has more
/// than nine digits, are passed over.
class LogStamps final : public ILogVisitor {
public:
  void SessionOpened(const LogElement& session) override;
  void Entity(const LogElement& entity) override;

  bool IsEmpty() const { return m_highest.empty(); }
  /// The highest number of all seconds that are not before that one, yyyy-mm-ddThh:mm:ss; -1 for none.
  std::int32_t HighestFrom(std::string_view second) const;
  /// The latest second; empty for none.
  std::string Latest() const;

private:
  void Note(const LogElement& element, std::string_view attribute);
  void Note(std::string_view second, std::int32_t number);

  /// The highest number of a second, unless it or a later one has a higher: the numbers fall as the seconds rise.
  std::map<std::string, std::int32_t, std::less<>> m_highest;
};

} // namespace portico

#pragma once

#include <string>
#include <string_view>

namespace portico::simulator {

/// A keyword of a command, written as the standard writes it: `VOLTage` stands for `VOLT` and `VOLTAGE`, and nothing
/// between.
class Mnemonic {
public:
  explicit Mnemonic(std::string_view pattern);

  /// Whether `text`, in any case, is the short or the long form.
  bool Matches(std::string_view text) const;

  const std::string& Short() const { return m_short; }
  const std::string& Long() const { return m_long; }

private:
  std::string m_short;
  std::string m_long;
};

} // namespace portico::simulator

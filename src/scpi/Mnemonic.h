#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace portico::scpi {

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

/// The short form of one of several keywords, as a query answers which was chosen.
std::string ShortOf(std::span<const std::string_view> keywords, std::size_t index);

} // namespace portico::scpi

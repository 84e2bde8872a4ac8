#pragma once

#include "scpi/UnitParser.h"
#include "simulator/language/UnitSuffix.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace portico::simulator {

/// What a numeric parameter may be; the ends and the default answer to MINimum, MAXimum and DEFault.
struct Limits {
  double Minimum;
  double Maximum;
  double Standard;
  Quantity Kind = Quantity::None;
};

/// The numeric suffixes of a header in the order of its pattern's `<...>`; 0 where none was given.
using Suffixes = std::array<std::uint32_t, 4>;

/// One call of a command: its parameters, converted on demand. A parameter of the wrong type or out of range throws
/// the ScpiError that the standard gives to it. Valid only while the handler runs.
class Call {
public:
  Call(const scpi::Unit& unit, const Suffixes& suffixes) : m_unit(unit), m_suffixes(suffixes) {}

  /// The number of parameters, which is within what the command's table says.
  std::size_t Count() const { return m_unit.Parameters.size(); }

  bool HasSuffix(std::size_t slot) const { return m_suffixes[slot] != 0; }
  std::uint32_t Suffix(std::size_t slot) const { return HasSuffix(slot) ? m_suffixes[slot] : 1; }

  double Number(std::size_t index, const Limits& limits) const;
  /// A number rounded to an integer, as IEEE 488.2 asks of `*ESE` and its like.
  std::int64_t Integer(std::size_t index, std::int64_t minimum, std::int64_t maximum) const;
  /// The same, or a named limit.
  std::int64_t Whole(std::size_t index, const Limits& limits) const;
  bool Boolean(std::size_t index) const;
  /// Which of the mnemonics, each written like `AVERage`, was given.
  std::size_t Keyword(std::size_t index, std::span<const std::string_view> choices) const;
  /// Whether the parameter is this keyword; of no other type does it complain.
  bool IsKeyword(std::size_t index, std::string_view mnemonic) const;
  std::string String(std::size_t index) const;
  std::string_view Block(std::size_t index) const;

  /// The answer to a query such as `RANGe? [MINimum|MAXimum|DEFault]`: that limit, or else the present value.
  double LimitOr(double value, const Limits& limits) const;
  std::int64_t WholeOr(std::int64_t value, const Limits& limits) const;

private:
  const scpi::Parameter& At(std::size_t index, std::initializer_list<scpi::Parameter::Kind> allowed) const;
  static double LimitNamed(std::string_view name, const Limits& limits);

  const scpi::Unit& m_unit;
  const Suffixes& m_suffixes;
};

} // namespace portico::simulator

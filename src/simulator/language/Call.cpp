#include "simulator/language/Call.h"

#include "scpi/Mnemonic.h"
#include "scpi/ScpiError.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace portico::simulator {
namespace {

using Kind = scpi::Parameter::Kind;

constexpr std::string_view Booleans[] = {"OFF", "ON"};

scpi::ErrorCode NotAllowed(Kind kind) {
  switch (kind) {
  case Kind::Decimal:
  case Kind::NonDecimal:
    return scpi::ErrorCode::NumericDataNotAllowed;
  case Kind::Character:
    return scpi::ErrorCode::CharacterDataNotAllowed;
  case Kind::String:
    return scpi::ErrorCode::StringDataNotAllowed;
  case Kind::Block:
    return scpi::ErrorCode::BlockDataNotAllowed;
  case Kind::Expression:
    break;
  }
  return scpi::ErrorCode::ExpressionDataNotAllowed;
}

double DecimalValue(const scpi::Parameter& parameter, Quantity quantity) {
  std::string_view digits = parameter.Text;
  if (digits.front() == '+') digits.remove_prefix(1);
  double value = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    const std::size_t exponent = digits.find_first_of("eE");
    const bool tiny = exponent != std::string_view::npos && digits.substr(exponent + 1).starts_with('-');
    value = tiny ? 0 : std::numeric_limits<double>::infinity();
  }
  if (parameter.Unit.empty()) return value;
  const auto factor = UnitFactor(quantity, parameter.Unit);
  if (!factor) {
    throw scpi::ScpiError(quantity == Quantity::None ? scpi::ErrorCode::SuffixNotAllowed
                                                     : scpi::ErrorCode::InvalidSuffix);
  }
  return value * *factor;
}

double NonDecimalValue(const scpi::Parameter& parameter) {
  std::uint64_t value = 0;
  std::from_chars(parameter.Text.data(), parameter.Text.data() + parameter.Text.size(), value, parameter.Mark);
  return static_cast<double>(value);
}

double Value(const scpi::Parameter& parameter, Quantity quantity) {
  return parameter.Form == Kind::Decimal ? DecimalValue(parameter, quantity) : NonDecimalValue(parameter);
}

} // namespace

const scpi::Parameter& Call::At(std::size_t index, std::initializer_list<Kind> allowed) const {
  const scpi::Parameter& parameter = m_unit.Parameters[index];
  if (std::find(allowed.begin(), allowed.end(), parameter.Form) == allowed.end()) {
    throw scpi::ScpiError(NotAllowed(parameter.Form));
  }
  return parameter;
}

double Call::LimitNamed(std::string_view name, const Limits& limits) {
  static const scpi::Mnemonic minimum("MINimum");
  static const scpi::Mnemonic maximum("MAXimum");
  static const scpi::Mnemonic standard("DEFault");
  if (minimum.Matches(name)) return limits.Minimum;
  if (maximum.Matches(name)) return limits.Maximum;
  if (standard.Matches(name)) return limits.Standard;
  throw scpi::ScpiError(scpi::ErrorCode::InvalidCharacterData);
}

double Call::Number(std::size_t index, const Limits& limits) const {
  const scpi::Parameter& parameter = At(index, {Kind::Decimal, Kind::NonDecimal, Kind::Character});
  if (parameter.Form == Kind::Character) return LimitNamed(parameter.Text, limits);
  const double value = Value(parameter, limits.Kind);
  if (!(value >= limits.Minimum && value <= limits.Maximum)) throw scpi::ScpiError(scpi::ErrorCode::DataOutOfRange);
  return value;
}

std::int64_t Call::Integer(std::size_t index, std::int64_t minimum, std::int64_t maximum) const {
  const double value = std::round(Value(At(index, {Kind::Decimal, Kind::NonDecimal}), Quantity::None));
  if (!(value >= static_cast<double>(minimum) && value <= static_cast<double>(maximum))) {
    throw scpi::ScpiError(scpi::ErrorCode::DataOutOfRange);
  }
  return static_cast<std::int64_t>(value);
}

std::int64_t Call::Whole(std::size_t index, const Limits& limits) const {
  const scpi::Parameter& parameter = m_unit.Parameters[index];
  const auto whole = [](double limit) { return static_cast<std::int64_t>(limit); };
  if (parameter.Form == Kind::Character) return whole(LimitNamed(parameter.Text, limits));
  return Integer(index, whole(limits.Minimum), whole(limits.Maximum));
}

bool Call::Boolean(std::size_t index) const {
  const scpi::Parameter& parameter = At(index, {Kind::Decimal, Kind::NonDecimal, Kind::Character});
  if (parameter.Form == Kind::Character) return Keyword(index, Booleans) == 1;
  return std::round(Value(parameter, Quantity::None)) != 0;
}

std::size_t Call::Keyword(std::size_t index, std::span<const std::string_view> choices) const {
  At(index, {Kind::Character});
  const auto found = std::find_if(choices.begin(), choices.end(),
                                  [this, index](std::string_view choice) { return IsKeyword(index, choice); });
  if (found == choices.end()) throw scpi::ScpiError(scpi::ErrorCode::IllegalParameterValue);
  return static_cast<std::size_t>(found - choices.begin());
}

bool Call::IsKeyword(std::size_t index, std::string_view mnemonic) const {
  const scpi::Parameter& parameter = m_unit.Parameters[index];
  return parameter.Form == Kind::Character && scpi::Mnemonic(mnemonic).Matches(parameter.Text);
}

std::string Call::String(std::size_t index) const {
  const scpi::Parameter& parameter = At(index, {Kind::String});
  std::string text;
  for (std::size_t i = 0; i < parameter.Text.size(); ++i) {
    text += parameter.Text[i];
    if (parameter.Text[i] == parameter.Mark) ++i; // inside a string its quote only occurs doubled
  }
  return text;
}

std::string_view Call::Block(std::size_t index) const { return At(index, {Kind::Block}).Text; }

double Call::LimitOr(double value, const Limits& limits) const {
  return Count() == 0 ? value : LimitNamed(At(0, {Kind::Character}).Text, limits);
}

std::int64_t Call::WholeOr(std::int64_t value, const Limits& limits) const {
  return static_cast<std::int64_t>(LimitOr(static_cast<double>(value), limits));
}

} // namespace portico::simulator

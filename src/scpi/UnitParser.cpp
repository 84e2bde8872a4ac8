#include "scpi/UnitParser.h"

#include "scpi/Block.h"
#include "scpi/ScpiError.h"
#include "scpi/Syntax.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace portico::scpi {
namespace {

// IEEE 488.2 limits a mnemonic, character data and a unit to 12 characters, a mantissa to 255 digits and an exponent
// to 32000.
constexpr std::size_t LongestMnemonic = 12;
constexpr std::size_t MostDigits = 255;
constexpr int LargestExponent = 32000;

bool IsUnitByte(char byte) { return IsLetter(byte) || IsDigit(byte) || byte == '/' || byte == '.'; }

/// What a byte that fits nowhere is called: a stray one of the syntax's own, or one that is never allowed.
ErrorCode Stray(char byte) {
  constexpr std::string_view own = ":*?,\"'#+-.()";
  return IsMnemonicByte(byte) || own.find(byte) != std::string_view::npos ? ErrorCode::SyntaxError
                                                                          : ErrorCode::InvalidCharacter;
}

} // namespace

bool UnitParser::Next(Unit& unit) {
  SkipWhiteSpace();
  while (Skip(';')) SkipWhiteSpace();
  if (m_rest.empty()) return false;
  ParseHeader(unit);
  ParseParameters(unit);
  return true;
}

void UnitParser::ParseHeader(Unit& unit) {
  if (Peek() == '*') {
    const std::string_view start = m_rest;
    m_rest.remove_prefix(1);
    const HeaderNode node = ParseNode();
    if (node.Suffix) throw ScpiError(ErrorCode::UndefinedHeader);
    unit.Header.assign(1, {start.substr(0, node.Name.size() + 1), std::nullopt});
  } else {
    if (Skip(':')) m_path.clear();
    unit.Header = m_path;
    do {
      unit.Header.push_back(ParseNode());
    } while (Skip(':'));
    m_path.assign(unit.Header.begin(), unit.Header.end() - 1);
  }
  unit.Query = Skip('?');
  if (AtUnitEnd() || IsWhiteSpace(Peek())) return;
  const bool forbidden = Stray(Peek()) == ErrorCode::InvalidCharacter;
  throw ScpiError(forbidden ? ErrorCode::InvalidCharacter : ErrorCode::HeaderSeparatorError);
}

HeaderNode UnitParser::ParseNode() {
  if (!IsLetter(Peek())) throw ScpiError(AtUnitEnd() ? ErrorCode::SyntaxError : Stray(Peek()));
  const std::string_view word = TakeWhile(IsMnemonicByte);
  if (word.size() > LongestMnemonic) throw ScpiError(ErrorCode::MnemonicTooLong);
  const std::size_t nameSize = word.find_last_not_of("0123456789") + 1;
  HeaderNode node{word.substr(0, nameSize), std::nullopt};
  if (nameSize < word.size()) {
    std::uint32_t suffix = 0;
    const auto result = std::from_chars(word.data() + nameSize, word.data() + word.size(), suffix);
    node.Suffix = result.ec == std::errc() ? suffix : std::numeric_limits<std::uint32_t>::max();
  }
  return node;
}

void UnitParser::ParseParameters(Unit& unit) {
  unit.Parameters.clear();
  SkipWhiteSpace();
  if (AtUnitEnd()) return;
  do {
    SkipWhiteSpace();
    unit.Parameters.push_back(ParseParameter());
    SkipWhiteSpace();
  } while (Skip(','));
  if (!AtUnitEnd()) throw ScpiError(ErrorCode::InvalidSeparator);
}

Parameter UnitParser::ParseParameter() {
  const char first = Peek();
  if (AtUnitEnd() || first == ',') throw ScpiError(ErrorCode::MissingParameter);
  if (IsLetter(first)) return ParseCharacter();
  if (IsDigit(first) || first == '+' || first == '-' || first == '.') return ParseNumber();
  if (first == '"' || first == '\'') return ParseString();
  if (first == '#') return ParseHashed();
  if (first == '(') return ParseExpression();
  throw ScpiError(Stray(first));
}

Parameter UnitParser::ParseNumber() {
  const std::string_view start = m_rest;
  if (!Skip('+')) Skip('-');
  std::size_t digits = SkipDigits();
  if (Skip('.')) digits += SkipDigits();
  if (digits == 0 || Peek() == '.') throw ScpiError(ErrorCode::InvalidCharacterInNumber);
  if (digits > MostDigits) throw ScpiError(ErrorCode::TooManyDigits);

  // An E is an exponent only if digits follow; otherwise it begins a unit such as EXHZ.
  const std::string_view beforeExponent = m_rest;
  if (Skip('E') || Skip('e')) {
    if (!Skip('+')) Skip('-');
    const std::string_view exponentStart = m_rest;
    const std::size_t exponentDigits = SkipDigits();
    int exponent = 0;
    const auto result = std::from_chars(exponentStart.data(), exponentStart.data() + exponentDigits, exponent);
    if (exponentDigits == 0) {
      m_rest = beforeExponent;
    } else if (result.ec != std::errc() || exponent > LargestExponent) {
      throw ScpiError(ErrorCode::ExponentTooLarge);
    }
  }
  const std::string_view number = start.substr(0, start.size() - m_rest.size());
  SkipWhiteSpace();
  const std::string_view unit = IsLetter(Peek()) ? TakeWhile(IsUnitByte) : std::string_view();
  if (unit.size() > LongestMnemonic) throw ScpiError(ErrorCode::SuffixTooLong);
  return {Parameter::Kind::Decimal, number, unit, 0};
}

Parameter UnitParser::ParseHashed() {
  if (m_rest.size() > 1 && IsDigit(m_rest[1])) return ParseBlock();
  m_rest.remove_prefix(1);
  return ParseNonDecimal();
}

Parameter UnitParser::ParseNonDecimal() {
  const char letter = ToUpper(Peek());
  const int base = letter == 'H' ? 16 : letter == 'Q' ? 8 : letter == 'B' ? 2 : 0;
  if (base == 0) throw ScpiError(ErrorCode::InvalidBlockData);
  m_rest.remove_prefix(1);
  const std::string_view digits = TakeWhile(IsMnemonicByte);
  std::uint64_t value = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
  if (result.ec == std::errc::result_out_of_range) throw ScpiError(ErrorCode::TooManyDigits);
  if (digits.empty() || result.ptr != digits.data() + digits.size()) {
    throw ScpiError(ErrorCode::InvalidCharacterInNumber);
  }
  return {Parameter::Kind::NonDecimal, digits, {}, static_cast<char>(base)};
}

Parameter UnitParser::ParseBlock() {
  const auto block = TakeBlock(m_rest);
  if (!block || !block->Whole) throw ScpiError(ErrorCode::InvalidBlockData);
  return {Parameter::Kind::Block, block->Bytes, {}, 0};
}

Parameter UnitParser::ParseString() {
  const char quote = Peek();
  std::size_t end = m_rest.find(quote, 1);
  while (end != std::string_view::npos && end + 1 < m_rest.size() && m_rest[end + 1] == quote) {
    end = m_rest.find(quote, end + 2);
  }
  if (end == std::string_view::npos) throw ScpiError(ErrorCode::InvalidStringData);
  const std::string_view quoted = Take(end + 1);
  return {Parameter::Kind::String, quoted.substr(1, end - 1), {}, quote};
}

Parameter UnitParser::ParseCharacter() {
  const std::string_view word = TakeWhile(IsMnemonicByte);
  if (word.size() > LongestMnemonic) throw ScpiError(ErrorCode::CharacterDataTooLong);
  return {Parameter::Kind::Character, word, {}, 0};
}

Parameter UnitParser::ParseExpression() {
  const std::size_t end = m_rest.find(')');
  if (end == std::string_view::npos) throw ScpiError(ErrorCode::ExpressionError);
  return {Parameter::Kind::Expression, Take(end + 1), {}, 0};
}

bool UnitParser::Skip(char byte) {
  if (m_rest.empty() || m_rest.front() != byte) return false;
  m_rest.remove_prefix(1);
  return true;
}

void UnitParser::SkipWhiteSpace() { TakeWhile(IsWhiteSpace); }

std::size_t UnitParser::SkipDigits() { return TakeWhile(IsDigit).size(); }

std::string_view UnitParser::Take(std::size_t count) {
  const std::string_view taken = m_rest.substr(0, count);
  m_rest.remove_prefix(count);
  return taken;
}

template <class Predicate>
std::string_view UnitParser::TakeWhile(Predicate predicate) {
  const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), predicate);
  return Take(static_cast<std::size_t>(end - m_rest.begin()));
}

} // namespace portico::scpi

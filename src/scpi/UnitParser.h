#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace portico::scpi {

/// One node of a header: `CHAN2` is the name `CHAN` with the suffix 2. A common command is one node, asterisk included.
struct HeaderNode {
  std::string_view Name;
  std::optional<std::uint32_t> Suffix;
};

/// One parameter as it stands in the message.
struct Parameter {
  enum class Kind { Decimal, NonDecimal, Character, String, Block, Expression };

  Kind Form;
  /// The digits without `#H`, `#Q` or `#B`; the string without its outer quotes; the block's bytes alone.
  std::string_view Text;
  /// Of a decimal number the unit, which may be empty.
  std::string_view Unit;
  /// Of a non-decimal number its base; of a string its quote.
  char Mark;
};

/// A program message unit: one command or query, its header complete from the root.
struct Unit {
  std::vector<HeaderNode> Header;
  std::vector<Parameter> Parameters;
  bool Query = false;
};

/// Takes the units of one program message, one after the other, and follows the current path from unit to unit.
class UnitParser {
public:
  UnitParser() = default;
  /// `message` must outlive the parser and the units, and so must that of a path which other units left behind.
  explicit UnitParser(std::string_view message, std::vector<HeaderNode> path = {})
      : m_rest(message), m_path(std::move(path)) {}

  /// Parses the next unit; false at the end of the message. Throws ScpiError, after which the rest is of no use.
  bool Next(Unit& unit);

  /// What the next header begins with, unless it begins with a colon.
  const std::vector<HeaderNode>& Path() const { return m_path; }

private:
  void ParseHeader(Unit& unit);
  HeaderNode ParseNode();
  void ParseParameters(Unit& unit);
  Parameter ParseParameter();
  Parameter ParseNumber();
  Parameter ParseHashed();
  Parameter ParseNonDecimal();
  Parameter ParseBlock();
  Parameter ParseString();
  Parameter ParseCharacter();
  Parameter ParseExpression();

  char Peek() const { return m_rest.empty() ? '\n' : m_rest.front(); }
  bool AtUnitEnd() const { return m_rest.empty() || m_rest.front() == ';'; }
  bool Skip(char byte);
  void SkipWhiteSpace();
  std::size_t SkipDigits();
  std::string_view Take(std::size_t count);
  template <class Predicate>
  std::string_view TakeWhile(Predicate predicate);

  std::string_view m_rest;
  std::vector<HeaderNode> m_path;
};

} // namespace portico::scpi

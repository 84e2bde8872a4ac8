#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace portico::scpi {

/// The numeric suffixes that a node of a header may have. Where none is given it is 1.
struct SuffixRange {
  static constexpr std::uint32_t Any = std::numeric_limits<std::uint32_t>::max();

  std::uint32_t First = 1;
  std::uint32_t Last = 1;

  bool Has(std::uint32_t suffix) const { return suffix >= First && suffix <= Last; }
  bool operator==(const SuffixRange&) const = default;
};

/// One node of a header as manuals and standards write it.
struct PatternNode {
  std::string Name; ///< `VOLTage`, the capitals being its short form; of a common command with the asterisk
  bool Optional = false;
  bool Suffixed = false; ///< a range is written behind it
  SuffixRange Suffixes;

  bool operator==(const PatternNode&) const = default;
};

/// A header in the notation of manuals and standards: capitals are the short form, and `[...]` is a node that may be
/// left out with its colon, which stands on either side of it. Behind a node stands what its numeric suffix may be:
/// `<1-4>`,
/// `{1:4}`, `[1]|2|3|4` and `1|2|3|4` are from 1 to 4, and another word in `<...>` is any number. A name that ends in
/// digits has that one suffix.
class HeaderPattern {
public:
  static constexpr std::size_t MostNodes = 16;
  static constexpr std::size_t LongestName = 64;

  /// Reads a header without its question mark; none for a text that is not one.
  static std::optional<HeaderPattern> Parse(std::string_view text);

  const std::vector<PatternNode>& Nodes() const { return m_nodes; }
  bool IsCommon() const { return m_nodes.front().Name.front() == '*'; }
  /// The header in one notation, whichever it was read in: `[:SENSe]:VOLTage[:DC]`, `:OUTPut<1-2>`, `:CHANnel<n>`,
  /// `*IDN`.
  std::string Text() const;

  bool operator==(const HeaderPattern&) const = default;

private:
  class Reader;
  HeaderPattern() = default;

  std::vector<PatternNode> m_nodes;
};

/// The suffix as the notation has it: `<1-4>`, `<n>` for any, `2` for that alone.
std::string TextOf(const SuffixRange& suffixes);

} // namespace portico::scpi

#include "scpi/HeaderPattern.h"

#include "scpi/Syntax.h"

#include <algorithm>
#include <charconv>

namespace portico::scpi {
namespace {

/// The number that a text is, from 0 to the largest suffix.
std::optional<std::uint32_t> NumberIn(std::string_view text) {
  std::uint32_t number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

} // namespace

/// Takes a text apart from its front.
class HeaderPattern::Reader {
public:
  explicit Reader(std::string_view text) : m_rest(text) {}

  bool Read(std::vector<PatternNode>& nodes) {
    bool colon = false; // since the node before
    while (!m_rest.empty()) {
      const char byte = m_rest.front();
      if (IsLetter(byte) || (byte == '*' && nodes.empty() && !colon)) {
        if ((!colon && !nodes.empty()) || nodes.size() == MostNodes || !ReadNode(nodes)) return false;
        colon = false;
        continue;
      }
      m_rest.remove_prefix(1);
      if (byte == ':' && !colon) {
        colon = true;
      } else if (byte == '[') {
        ++m_depth;
      } else if (byte == ']' && m_depth > 0) {
        --m_depth;
      } else {
        return false;
      }
    }
    const bool common = !nodes.empty() && nodes.front().Name.front() == '*';
    const bool optional =
        std::all_of(nodes.begin(), nodes.end(), [](const PatternNode& node) { return node.Optional; });
    return m_depth == 0 && !colon && !optional && (!common || (nodes.size() == 1 && !nodes.front().Suffixed));
  }

private:
  bool ReadNode(std::vector<PatternNode>& nodes) {
    std::size_t size = 1;
    while (size < m_rest.size() && IsMnemonicByte(m_rest[size])) ++size;
    std::string_view name = m_rest.substr(0, size);
    m_rest.remove_prefix(size);
    PatternNode node;
    node.Optional = m_depth > 0;
    const std::size_t letters = name.find_last_not_of("0123456789") + 1;
    if (letters < name.size()) {
      const auto suffix = NumberIn(name.substr(letters));
      if (!suffix) return false;
      node.Suffixed = true;
      node.Suffixes = {*suffix, *suffix};
      name = name.substr(0, letters);
    }
    if (name == "*" || name.size() > LongestName) return false;
    node.Name = name;
    // Of a name without capitals no short form is known.
    if (std::none_of(name.begin(), name.end(), [](char byte) { return IsLetter(byte) && ToUpper(byte) == byte; })) {
      std::transform(name.begin(), name.end(), node.Name.begin(), ToUpper);
    }
    nodes.push_back(node);
    return ReadSuffixes(nodes.back());
  }

  bool ReadSuffixes(PatternNode& node) {
    if (Skip("<")) return ReadRange(node, '>', '-');
    if (Skip("{")) return ReadRange(node, '}', ':');
    if (m_rest.starts_with('[') && m_rest.size() > 1 && IsDigit(m_rest[1])) {
      const std::size_t end = m_rest.find(']');
      const auto number = end == std::string_view::npos ? std::nullopt : NumberIn(m_rest.substr(1, end - 1));
      if (!number || node.Suffixed) return false;
      m_rest.remove_prefix(end + 1);
      node.Suffixed = true;
      node.Suffixes = {*number, *number};
    }
    while (node.Suffixed && Skip("|")) {
      std::size_t size = 0;
      while (size < m_rest.size() && IsDigit(m_rest[size])) ++size;
      const auto number = NumberIn(m_rest.substr(0, size));
      if (!number) return false;
      node.Suffixes = {std::min(node.Suffixes.First, *number), std::max(node.Suffixes.Last, *number)};
      m_rest.remove_prefix(size);
    }
    return true;
  }

  bool ReadRange(PatternNode& node, char close, char between) {
    const std::size_t end = m_rest.find(close);
    if (end == std::string_view::npos || end == 0 || node.Suffixed) return false;
    const std::string_view range = m_rest.substr(0, end);
    m_rest.remove_prefix(end + 1);
    node.Suffixed = true;
    if (!IsDigit(range.front())) {
      node.Suffixes = {1, SuffixRange::Any};
      return std::all_of(range.begin(), range.end(), IsMnemonicByte);
    }
    const std::size_t middle = std::min(range.find(between), range.size());
    const auto first = NumberIn(range.substr(0, middle));
    const auto last = middle < range.size() ? NumberIn(range.substr(middle + 1)) : first;
    if (!first || !last || *first > *last) return false;
    node.Suffixes = {*first, *last};
    return true;
  }

  bool Skip(std::string_view word) {
    if (!m_rest.starts_with(word)) return false;
    m_rest.remove_prefix(word.size());
    return true;
  }

  std::string_view m_rest;
  std::size_t m_depth = 0;
};

std::optional<HeaderPattern> HeaderPattern::Parse(std::string_view text) {
  HeaderPattern pattern;
  if (!Reader(text).Read(pattern.m_nodes)) return std::nullopt;
  return pattern;
}

std::string HeaderPattern::Text() const {
  std::string text;
  for (const PatternNode& node : m_nodes) {
    if (node.Optional) text += '[';
    if (!IsCommon()) text += ':';
    text += node.Name;
    if (node.Suffixed) text += TextOf(node.Suffixes);
    if (node.Optional) text += ']';
  }
  return text;
}

std::string TextOf(const SuffixRange& suffixes) {
  if (suffixes == SuffixRange{1, SuffixRange::Any}) return "<n>";
  if (suffixes.First == suffixes.Last) return std::to_string(suffixes.First);
  return '<' + std::to_string(suffixes.First) + '-' + std::to_string(suffixes.Last) + '>';
}

} // namespace portico::scpi

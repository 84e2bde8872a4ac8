#include "completion/Completion.h"

#include "completion/BestOffers.h"
#include "completion/LineText.h"
#include "completion/WordForm.h"
#include "scpi/MessageScanner.h"
#include "scpi/ScpiError.h"
#include "scpi/Syntax.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace portico::completion {
namespace {

using Node = CommandTree::Node;
using Places = CommandTree::Places;

String Text(std::string_view bytes) { return {bytes.begin(), bytes.end()}; }

/// Whether a text is the beginning of a word.
bool BeginsWord(std::string_view text) {
  return text.empty() || (scpi::IsLetter(text.front()) && std::all_of(text.begin(), text.end(), scpi::IsMnemonicByte));
}

std::string_view WithoutWhiteSpace(std::string_view text) {
  return text.substr(
      static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), scpi::IsWhiteSpace) - text.begin()));
}

/// A header alone, whatever parameters are behind it.
std::string_view HeaderOf(std::string_view unit) {
  return unit.substr(
      0, static_cast<std::size_t>(std::find_if(unit.begin(), unit.end(), scpi::IsWhiteSpace) - unit.begin()));
}

/// What follows the last comma that stands outside of strings and blocks, of which there are so many.
std::string_view BehindLastComma(std::string_view text, std::size_t& count) {
  scpi::MessageScanner scanner(",");
  std::string_view last = text;
  while (!text.empty()) {
    bool found = false;
    text.remove_prefix(scanner.Scan(text, found));
    if (found) last = text;
    count += found ? 1 : 0;
  }
  return last;
}

bool IsCommon(const Node& node) { return node.Pattern.Name.starts_with('*'); }

/// The end of a line, and what the line up to there says of it.
class LineEnd {
public:
  LineEnd(std::string_view line, const CommandTree& tree) : m_line(line), m_tree(tree) {}

  Completion Complete();

private:
  void ReadUnit(std::string_view unit);
  Places Follow(const std::vector<scpi::HeaderNode>& header);
  void CompleteHeader(std::string_view header);
  void CompleteParameter(std::string_view unit);
  void OfferNode(const Node& node, std::string_view typed);
  void OfferEnds(const Node& node, const std::string& text, std::optional<std::uint32_t> suffix);
  void BeginAt(std::string_view typed) { m_completion.Begin = m_line.size() - typed.size(); }

  std::string_view m_line;
  const CommandTree& m_tree;
  std::vector<scpi::HeaderNode> m_path;
  WordForm m_form;
  BestOffers m_offers{Completion::Most};
  Completion m_completion;
};

Completion LineEnd::Complete() {
  std::string_view rest = m_line;
  scpi::MessageScanner scanner(";");
  for (;;) {
    bool found = false;
    const std::size_t taken = scanner.Scan(rest, found);
    if (!found) break;
    ReadUnit(rest.substr(0, taken - 1));
    rest.remove_prefix(taken);
  }
  BeginAt({});
  if (scanner.InsideData()) return m_completion;
  const std::string_view unit = WithoutWhiteSpace(rest);
  if (HeaderOf(unit).size() == unit.size()) {
    CompleteHeader(unit);
  } else {
    CompleteParameter(unit);
  }
  for (const BestOffers::Offer& offer : m_offers.InOrder()) {
    m_completion.Candidates.push_back({Text(offer.Text), Text(offer.Shown)});
  }
  return m_completion;
}

/// Where a header leads; the user's way of writing shows in it.
Places LineEnd::Follow(const std::vector<scpi::HeaderNode>& header) {
  Places places = m_tree.Root();
  for (const scpi::HeaderNode& typed : header) {
    places = CommandTree::Behind(places, typed);
    if (places.empty()) {
      m_form.LearnCase(typed.Name);
    } else {
      m_form.Learn(typed.Name, places.front()->Pattern.Name);
    }
  }
  return places;
}

/// Takes notice of a unit in front of the one that is completed. One that is no header leaves the path alone.
void LineEnd::ReadUnit(std::string_view unit) {
  unit = WithoutWhiteSpace(unit);
  scpi::UnitParser parser(HeaderOf(unit), m_path);
  scpi::Unit parsed;
  try {
    if (!parser.Next(parsed)) return;
  } catch (const scpi::ScpiError&) {
    return;
  }
  Follow(parsed.Header);
  m_path = parser.Path();
}

void LineEnd::CompleteHeader(std::string_view header) {
  const std::string_view typed = header.substr(header.rfind(':') + 1); // all where there is none
  const bool common = typed.size() == header.size() && typed.starts_with('*');
  if (!BeginsWord(typed.substr(common ? 1 : 0))) return;
  // The nodes in front of the one that is typed, which the parser wants to be there.
  const std::string whole = std::string(header.substr(0, header.size() - typed.size())) + 'X';
  scpi::Unit unit;
  try {
    scpi::UnitParser(whole, common ? std::vector<scpi::HeaderNode>() : m_path).Next(unit);
  } catch (const scpi::ScpiError&) {
    return;
  }
  unit.Header.pop_back();
  const bool behindColon = typed.size() < header.size();
  BeginAt(typed);
  for (const Node* place : Follow(unit.Header)) {
    const std::string name(typed.substr(0, typed.find_last_not_of("0123456789") + 1));
    const std::string beginning = scpi::Mnemonic(name).Long();
    for (auto next = place->ByName.lower_bound(beginning); next != place->ByName.end(); ++next) {
      if (!next->first.starts_with(beginning)) break;
      for (const Node* node : next->second) {
        if (!behindColon || !IsCommon(*node)) OfferNode(*node, typed);
      }
    }
  }
}

/// Offers a node whose name begins as it was typed, with each suffix that may follow.
void LineEnd::OfferNode(const Node& node, std::string_view typed) {
  const std::size_t first = std::min({node.Command.Rank, node.Query.Rank, node.Below});
  if (!m_offers.HasPlaceFor(first, IsCommon(node), node.Keyword.Long())) return;
  const std::string_view name = typed.substr(0, typed.find_last_not_of("0123456789") + 1);
  const std::string_view digits = typed.substr(name.size());
  const scpi::SuffixRange& range = node.Pattern.Suffixes;
  const auto word = digits.empty() ? m_form.Complete(name, node.Pattern.Name) : std::string(name);
  if (!word || (!digits.empty() && !node.Keyword.Matches(name))) return;
  if (digits.empty() && range.Has(1)) OfferEnds(node, *word, std::nullopt);
  const auto offer = [&](std::uint32_t suffix) {
    const std::string number = std::to_string(suffix);
    if (number.starts_with(digits)) OfferEnds(node, *word + number, suffix);
  };
  if (!digits.empty() && digits.size() < 10) {
    const auto suffix = static_cast<std::uint32_t>(std::stoul(std::string(digits)));
    if (range.Has(suffix) && std::to_string(suffix) == digits) offer(suffix);
  }
  if (range == scpi::SuffixRange{} && digits.empty()) return;
  std::uint32_t suffix = range.First;
  for (std::size_t i = 0; i < Completion::MostSuffixes && range.Has(suffix); ++i) offer(suffix++);
}

/// Offers a node, whose text is complete, as the end of a command, of a query, and on the way to others.
void LineEnd::OfferEnds(const Node& node, const std::string& text, std::optional<std::uint32_t> suffix) {
  std::size_t command = CommandTree::NoRank;
  std::size_t query = CommandTree::NoRank;
  std::string parameters;
  std::string queryParameters;
  const auto better = [this](std::size_t& rank, std::string& words, const CommandTree::Leaf& leaf) {
    if (leaf.Rank >= rank) return;
    rank = leaf.Rank;
    words = TextOf(m_tree.ParametersOf(leaf));
  };
  for (const Node* place : CommandTree::Behind(node)) {
    better(command, parameters, place->Command);
    better(query, queryParameters, place->Query);
  }
  const auto add = [&](std::size_t rank, int kind, std::string_view mark, const std::string& words) {
    if (rank == CommandTree::NoRank) return;
    std::string shown = node.Pattern.Name + (suffix ? std::to_string(*suffix) : "");
    shown.append(mark);
    if (!words.empty()) shown.append(1, ' ').append(words);
    const std::uint64_t place = suffix ? std::uint64_t{*suffix} + 1 : 0;
    m_offers.Add({rank, IsCommon(node), node.Keyword.Long(), place, kind}, text + std::string(mark), std::move(shown));
  };
  add(command, 0, "", parameters);
  add(query, 1, "?", queryParameters);
  add(node.Below, 2, ":", "");
}

void LineEnd::CompleteParameter(std::string_view unit) {
  scpi::Unit parsed;
  try {
    if (!scpi::UnitParser(HeaderOf(unit), m_path).Next(parsed)) return;
  } catch (const scpi::ScpiError&) {
    return;
  }
  std::size_t index = 0;
  std::string_view typed = BehindLastComma(unit, index);
  if (index == 0) typed.remove_prefix(HeaderOf(unit).size());
  typed = WithoutWhiteSpace(typed);
  if (!BeginsWord(typed)) return;
  BeginAt(typed);
  const std::vector<Choices>* parameters = nullptr;
  std::size_t rank = CommandTree::NoRank;
  for (const Node* place : Follow(parsed.Header)) {
    const CommandTree::Leaf& leaf = parsed.Query ? place->Query : place->Command;
    const std::vector<Choices>& known = m_tree.ParametersOf(leaf);
    if (leaf.Rank >= rank || known.empty()) continue;
    rank = leaf.Rank;
    parameters = &known;
  }
  if (parameters == nullptr || index >= parameters->size()) return;
  std::uint64_t number = 0;
  for (const std::string& choice : (*parameters)[index]) {
    if (auto word = m_form.Complete(typed, choice)) m_offers.Add({rank, false, "", number++, 0}, *word, choice);
  }
}

} // namespace

Completion Complete(StringView line, const CommandTree& tree) {
  const std::string bytes = LineBytes(line);
  return LineEnd(bytes, tree).Complete();
}

} // namespace portico::completion

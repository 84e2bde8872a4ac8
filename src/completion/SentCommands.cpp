#include "completion/SentCommands.h"

#include "completion/LineText.h"
#include "scpi/Mnemonic.h"
#include "scpi/ScpiError.h"
#include "scpi/UnitParser.h"

#include <algorithm>
#include <array>
#include <utility>

namespace portico::completion {
namespace {

/// Words of which one tells of the others.
constexpr auto Booleans = std::to_array<std::string_view>({"ON", "OFF"});
constexpr auto Limits = std::to_array<std::string_view>({"MINimum", "MAXimum", "DEFault"});

Choices ChoicesWith(std::string_view word) {
  const auto matches = [word](std::string_view name) { return scpi::Mnemonic(name).Matches(word); };
  if (std::any_of(Booleans.begin(), Booleans.end(), matches)) return {Booleans.begin(), Booleans.end()};
  if (std::any_of(Limits.begin(), Limits.end(), matches)) return {Limits.begin(), Limits.end()};
  return {scpi::Mnemonic(word).Long()};
}

std::string HeaderOf(const scpi::Unit& unit) {
  std::string header;
  for (const scpi::HeaderNode& node : unit.Header) {
    if (!header.empty()) header += ':';
    header += scpi::Mnemonic(node.Name).Long();
    if (node.Suffix) header += std::to_string(*node.Suffix);
  }
  return header;
}

std::vector<Choices> ParametersOf(const scpi::Unit& unit) {
  std::vector<Choices> parameters;
  for (const scpi::Parameter& parameter : unit.Parameters) {
    if (parameters.size() == KnownCommand::MostParameters) break;
    const bool word = parameter.Form == scpi::Parameter::Kind::Character;
    parameters.push_back(word ? ChoicesWith(parameter.Text) : Choices());
  }
  while (!parameters.empty() && parameters.back().empty()) parameters.pop_back();
  return parameters;
}

/// Whether there was something new in them.
bool Merge(std::vector<Choices>& known, const std::vector<Choices>& sent) {
  bool isNew = false;
  if (known.size() < sent.size()) known.resize(sent.size());
  for (std::size_t i = 0; i < sent.size(); ++i) {
    for (const std::string& word : sent[i]) {
      const bool isKnown = std::find(known[i].begin(), known[i].end(), word) != known[i].end();
      if (isKnown || known[i].size() == KnownCommand::MostChoices) continue;
      known[i].push_back(word);
      isNew = true;
    }
  }
  return isNew;
}

} // namespace

bool SentCommands::Take(StringView line) {
  const std::string bytes = LineBytes(line);
  scpi::UnitParser parser(bytes);
  scpi::Unit unit;
  bool isNew = false;
  try {
    while (parser.Next(unit)) {
      auto header = scpi::HeaderPattern::Parse(HeaderOf(unit));
      if (header) isNew |= Take({std::move(*header), !unit.Query, unit.Query, ParametersOf(unit)});
    }
  } catch (const scpi::ScpiError&) { // an instrument may take what the standard does not know
  }
  return isNew;
}

bool SentCommands::Take(KnownCommand command) {
  const auto same = std::find_if(m_commands.begin(), m_commands.end(), [&command](const KnownCommand& known) {
    return known.Query == command.Query && known.Header == command.Header;
  });
  if (same != m_commands.end()) {
    const bool isNew = Merge(same->Parameters, command.Parameters);
    std::rotate(same, same + 1, m_commands.end());
    return isNew;
  }
  if (m_commands.size() == Most) m_commands.erase(m_commands.begin());
  m_commands.push_back(std::move(command));
  return true;
}

} // namespace portico::completion

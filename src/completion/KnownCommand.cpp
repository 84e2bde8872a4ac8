#include "completion/KnownCommand.h"

#include "scpi/Syntax.h"

#include <algorithm>
#include <utility>

namespace portico::completion {
namespace {

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && scpi::IsWhiteSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && scpi::IsWhiteSpace(text.back())) text.remove_suffix(1);
  return text;
}

bool IsWord(std::string_view text) {
  return !text.empty() && text.size() <= scpi::HeaderPattern::LongestName && scpi::IsLetter(text.front()) &&
         std::all_of(text.begin(), text.end(), scpi::IsMnemonicByte);
}

/// Whether a text ends in a mark, in any case, which is cut off.
bool CutMark(std::string_view& text, std::string_view mark) {
  if (text.size() < mark.size()) return false;
  const std::string_view end = text.substr(text.size() - mark.size());
  const auto equal = [](char a, char b) { return scpi::ToUpper(a) == scpi::ToUpper(b); };
  if (!std::equal(end.begin(), end.end(), mark.begin(), equal)) return false;
  text.remove_suffix(mark.size());
  return true;
}

/// Puts the words of parameters together while their text is read.
class ParameterWords {
public:
  void Read(std::string_view text) {
    for (const char byte : text) {
      if (m_described) {
        m_described = byte != '>';
      } else if (byte == '<') {
        m_described = true;
        m_alternative += byte; // so that it is no word
      } else if (byte == ',' || byte == '|') {
        EndAlternative();
        if (byte == ',') m_parameters.emplace_back();
      } else if (std::string_view("[]{}").find(byte) == std::string_view::npos) {
        m_alternative += byte;
      }
    }
    EndAlternative();
    if (m_parameters.size() > KnownCommand::MostParameters) m_parameters.resize(KnownCommand::MostParameters);
    while (!m_parameters.empty() && m_parameters.back().empty()) m_parameters.pop_back();
  }

  std::vector<Choices> Take() { return std::move(m_parameters); }

private:
  void EndAlternative() {
    const std::string_view word = Trimmed(m_alternative);
    Choices& choices = m_parameters.back();
    const bool known = std::find(choices.begin(), choices.end(), word) != choices.end();
    if (IsWord(word) && !known && choices.size() < KnownCommand::MostChoices) choices.emplace_back(word);
    m_alternative.clear();
  }

  std::vector<Choices> m_parameters{1};
  std::string m_alternative;
  bool m_described = false;
};

} // namespace

std::optional<KnownCommand> ReadCommand(std::string_view line) {
  line = Trimmed(line);
  if (line.size() > KnownCommand::LongestLine) return std::nullopt;
  const auto blank = std::find_if(line.begin(), line.end(), scpi::IsWhiteSpace);
  std::string_view header = line.substr(0, static_cast<std::size_t>(blank - line.begin()));
  const std::string_view parameters = line.substr(header.size());
  bool query = CutMark(header, "/qonly/");
  const bool command = !query && CutMark(header, "/nquery/");
  if (!command && header.ends_with('?')) {
    query = true;
    header.remove_suffix(1);
  }
  auto pattern = scpi::HeaderPattern::Parse(header);
  if (!pattern) return std::nullopt;
  ParameterWords words;
  words.Read(parameters);
  return KnownCommand{std::move(*pattern), !query, !command, words.Take()};
}

std::string TextOf(const KnownCommand& command) {
  std::string text = command.Header.Text();
  if (!command.Command) text += "?/qonly/";
  if (!command.Query) text += "/nquery/";
  if (!command.Parameters.empty()) text += ' ' + TextOf(command.Parameters);
  return text;
}

std::string TextOf(const std::vector<Choices>& parameters) {
  std::string text;
  for (const Choices& choices : parameters) {
    if (!text.empty()) text += ',';
    if (choices.empty()) text += "<value>";
    for (const std::string& choice : choices) text += (&choice == &choices.front() ? "" : "|") + choice;
  }
  return text;
}

} // namespace portico::completion

#include "numbers/Block.h"

#include "numbers/Syntax.h"
#include "scpi/BlockHeader.h"

#include <algorithm>
#include <cstdint>

namespace portico::numbers {
namespace {

/// Of the first unit that is no white space, or the text's size.
template <class View>
std::size_t SkipWhiteSpace(View text, std::size_t from) {
  const auto rest = text.substr(from);
  const auto found = std::find_if_not(rest.begin(), rest.end(), [](auto unit) { return IsWhiteSpace(unit); });
  return from + static_cast<std::size_t>(found - rest.begin());
}

} // namespace

bool LooksLikeBlock(StringView answer) {
  const std::size_t start = SkipWhiteSpace(answer, 0);
  return answer.size() - start >= 2 && answer[start] == u'#' && answer[start + 1] >= u'0' && answer[start + 1] <= u'9';
}

StringView AnswerShownAs(StringView shown) {
  if (!shown.ends_with(NewLine)) return shown;
  const StringView answer = shown.substr(0, shown.size() - NewLine.size());
  if (!LooksLikeBlock(shown)) return answer;
  using State = scpi::BlockHeader::State;
  scpi::BlockHeader header;
  std::size_t place = SkipWhiteSpace(shown, 0);
  auto state = State::Open;
  while (state == State::Open && ++place < shown.size()) {
    state = shown[place] <= u'9' ? header.Step(static_cast<char>(shown[place])) : State::None;
  }
  const bool endsInBlock = state == State::Definite && shown.size() - (place + 1) == header.Length();
  return endsInBlock ? shown : answer;
}

std::variant<std::string_view, Fault> FindBlock(std::string_view answer) {
  std::size_t place = SkipWhiteSpace(answer, 0);
  if (place == answer.size() || answer[place] != '#') return Fault{place, u"The answer is no block: it has no #."};
  using State = scpi::BlockHeader::State;
  scpi::BlockHeader header;
  auto state = State::Open;
  while (state == State::Open) {
    if (++place == answer.size()) return Fault{place, u"The block ends within its length."};
    state = header.Step(answer[place]);
  }
  if (state == State::None) {
    return Fault{place, u"The answer is no block: no digit stands at character " + Counted(place + 1) + u"."};
  }
  const std::string_view rest = answer.substr(place + 1);
  if (state == State::Indefinite) return rest;
  if (header.Length() > rest.size()) {
    return Fault{answer.size(), u"The block is torn: of " + Counted(header.Length()) + u" bytes " +
                                    Counted(rest.size()) + u" are there."};
  }
  const auto length = static_cast<std::size_t>(header.Length());
  const std::size_t behind = SkipWhiteSpace(rest, length);
  if (behind < rest.size()) {
    return Fault{place + 1 + behind,
                 u"Something stands behind the block, at character " + Counted(place + 2 + behind) + u"."};
  }
  return rest.substr(0, length);
}

std::variant<std::string, Fault> ReadBlock(StringView answer) {
  if (const auto foreign = FindOutsideCodePage(answer)) {
    return Fault{*foreign, u"Character " + Counted(*foreign + 1) + u" of the block stands for no byte."};
  }
  std::string bytes = ToCodePage(answer);
  const auto found = FindBlock(bytes);
  if (const auto* fault = std::get_if<Fault>(&found)) return *fault;
  const auto block = std::get<std::string_view>(found);
  const auto start = static_cast<std::size_t>(block.data() - bytes.data());
  bytes.erase(start + block.size());
  bytes.erase(0, start);
  return bytes;
}

std::vector<scpi::Block> FindBlocks(std::string_view answer) {
  std::vector<scpi::Block> blocks;
  bool isElementStart = true;
  while (!answer.empty()) {
    const char byte = answer.front();
    if (isElementStart && byte == '#') {
      if (const auto block = scpi::TakeBlock(answer)) {
        blocks.push_back(*block);
        isElementStart = false;
        continue;
      }
    }
    answer.remove_prefix(1);
    if (isElementStart && (byte == '"' || byte == '\'')) { // a doubled quote is a string that follows at once
      const std::size_t end = answer.find(byte);
      answer.remove_prefix(end == std::string_view::npos ? answer.size() : end + 1);
      isElementStart = answer.starts_with(byte);
      continue;
    }
    isElementStart = byte == ',' || byte == ';' || IsWhiteSpace(byte);
  }
  return blocks;
}

} // namespace portico::numbers

#include "numbers/FormatClues.h"

#include "framework/text/DecimalNumber.h"
#include "numbers/Syntax.h"
#include "scpi/Mnemonic.h"
#include "scpi/ScpiError.h"

#include <algorithm>
#include <array>
#include <string>

namespace portico::numbers {
namespace {

using scpi::Mnemonic;

bool Is(std::string_view word, std::string_view keyword) { return Mnemonic(keyword).Matches(word); }

/// Whether a message may speak of any topic: there is a word in it that stands in each of their headers. Most messages
/// have none, and are not taken apart.
bool MayTell(StringView message) {
  constexpr std::array<StringView, 3> words = {u"FORM", u"WAV", u"RST"};
  for (; !message.empty(); message.remove_prefix(1)) {
    const auto begins = [message](StringView word) { return EqualNoCase(message.substr(0, word.size()), word); };
    const auto first = static_cast<char16_t>(message.front() & ~0x20U); // in upper case, if it is a letter
    if ((first == u'F' || first == u'W' || first == u'R') && std::any_of(words.begin(), words.end(), begins)) {
      return true;
    }
  }
  return false;
}

/// All units up to the first that is no SCPI.
std::vector<scpi::Unit> UnitsOf(std::string_view message) {
  std::vector<scpi::Unit> units;
  scpi::UnitParser parser(message);
  try {
    for (scpi::Unit unit; parser.Next(unit);) units.push_back(unit);
  } catch (const scpi::ScpiError&) {
    // What stands in front of it has been done.
  }
  return units;
}

std::vector<std::string_view> SplitAt(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.push_back(Stripped(text.substr(0, end)));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

std::optional<ElementType> TypeNamed(std::string_view name, std::optional<double> bits) {
  if (Is(name, "INTeger")) {
    if (bits == 8) return ElementType::Int8;
    if (bits == 16) return ElementType::Int16;
    if (bits == 32) return ElementType::Int32;
  } else if (Is(name, "UINTeger")) {
    if (bits == 8) return ElementType::UInt8;
    if (bits == 16) return ElementType::UInt16;
    if (bits == 32) return ElementType::UInt32;
  } else if (Is(name, "REAL")) {
    if (bits == 32) return ElementType::Float32;
    if (bits == 64) return ElementType::Float64;
  }
  return {};
}

std::optional<ElementType> WaveformType(std::string_view name) {
  if (Is(name, "BYTE")) return ElementType::UInt8;
  if (Is(name, "WORD")) return ElementType::UInt16;
  return {};
}

/// Points, seconds a point, value a code, value at the centre, code of the centre.
std::optional<WaveformScale> ScaleOf(const std::vector<std::string_view>& words) {
  constexpr std::size_t count = 5;
  if (words.size() != count) return {};
  std::vector<double> numbers;
  for (const std::string_view word : words) {
    const auto number = ReadDecimal(word);
    if (!number) return {};
    numbers.push_back(*number);
  }
  return WaveformScale{numbers[1], numbers[2], numbers[3], numbers[4]};
}

} // namespace

std::optional<FormatClues::Topic> FormatClues::TopicOf(const scpi::Unit& unit) {
  static const Mnemonic reset("*RST");
  static const Mnemonic format("FORMat");
  static const Mnemonic border("BORDer");
  static const Mnemonic data("DATA");
  static const Mnemonic waveform("WAVeform");
  static const Mnemonic byteOrder("BYTeorder");
  static const Mnemonic preamble("PREamble");
  const auto first = unit.Header.front().Name;
  const auto last = unit.Header.back().Name;
  if (unit.Header.size() == 1 && reset.Matches(first)) return Topic::Reset;
  if (unit.Header.size() == 1 && format.Matches(first)) return Topic::DataType;
  if (unit.Header.size() == 2 && format.Matches(first)) {
    if (border.Matches(last)) return Topic::BlockOrder;
    if (data.Matches(last)) return Topic::DataType;
  }
  if (unit.Header.size() == 2 && waveform.Matches(first)) {
    if (byteOrder.Matches(last)) return Topic::WaveformOrder;
    if (format.Matches(last)) return Topic::WaveformFormat;
    if (preamble.Matches(last)) return Topic::Preamble;
  }
  return {};
}

void FormatClues::Sent(StringView message) {
  if (!MayTell(message)) return;
  const std::string text = ToCodePage(Stripped(message));
  for (const scpi::Unit& unit : UnitsOf(text)) {
    const auto topic = TopicOf(unit);
    if (!topic || unit.Query) continue;
    Words words;
    for (const scpi::Parameter& parameter : unit.Parameters) words.push_back(parameter.Text);
    Note(*topic, words);
  }
}

void FormatClues::Answered(StringView message, StringView answer) {
  if (!MayTell(message)) return;
  const std::string question = ToCodePage(Stripped(message));
  auto units = UnitsOf(question);
  std::erase_if(units, [](const scpi::Unit& unit) { return !unit.Query; });
  if (std::none_of(units.begin(), units.end(), TopicOf)) return;
  const std::string text = ToCodePage(answer);
  const auto answers = SplitAt(text, ';');
  if (answers.size() != units.size()) return; // strings or blocks are among them
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (const auto topic = TopicOf(units[i])) Note(*topic, SplitAt(answers[i], ','));
  }
}

void FormatClues::Note(Topic topic, const Words& words) {
  const std::string_view word = words.empty() ? std::string_view() : words.front();
  switch (topic) {
  case Topic::Reset:
    *this = {};
    return;
  case Topic::BlockOrder:
    if (Is(word, "NORMal")) m_order = ByteOrder::MostSignificantFirst;
    if (Is(word, "SWAPped")) m_order = ByteOrder::LeastSignificantFirst;
    return;
  case Topic::WaveformOrder:
    if (Is(word, "MSBFirst")) m_order = ByteOrder::MostSignificantFirst;
    if (Is(word, "LSBFirst")) m_order = ByteOrder::LeastSignificantFirst;
    return;
  case Topic::DataType:
    m_type = TypeNamed(word, words.size() < 2 ? std::nullopt : ReadDecimal(words[1]));
    return;
  case Topic::WaveformFormat:
    m_type = WaveformType(word);
    return;
  case Topic::Preamble:
    m_scale = ScaleOf(words);
  }
}

ElementFormat FormatClues::Format() const {
  const ElementFormat standard;
  return {m_type.value_or(standard.Type), m_order.value_or(standard.Order)};
}

} // namespace portico::numbers

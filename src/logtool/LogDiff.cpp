#include "logtool/LogDiff.h"

#include "document/entities/IDataEntity.h"
#include "framework/text/Printable.h"
#include "logtool/Alignment.h"
#include "logtool/SameAnswer.h"

#include <algorithm>

namespace portico::logtool {
namespace {

constexpr std::size_t MostShown = 100;  // units of a text
constexpr std::size_t MostInFront = 30; // of what differs

/// A text that is not too long, or what stands around a place in it.
std::string Excerpt(StringView text, std::size_t place) {
  if (text.size() <= MostShown) return Printable(text);
  const std::size_t from = place > MostInFront ? place - MostInFront : 0;
  const std::string_view dots = "...";
  std::string excerpt(from > 0 ? dots : std::string_view());
  excerpt += Printable(text.substr(std::min(from, text.size()), MostShown));
  if (from + MostShown < text.size()) excerpt += dots;
  return excerpt;
}

} // namespace

void LogDiff::BeginFile(const std::string& name) {
  m_side = m_side == nullptr ? m_sides.data() : m_side + 1;
  m_side->Name = Printable(FromUtf8(name == "-" ? "standard input" : name).Text);
}

std::string LogDiff::Add(const LogEntry& entry) {
  ++m_side->Entities;
  const String kind = FromUtf8(entry.Kind).Text;
  const StringView text = WithoutLineEnd(entry.Text);
  if (kind == DataTypeName::Instruction || kind == DataTypeName::AutomaticInstruction) {
    Begin(Trim(text));
  } else if (kind == DataTypeName::Response) {
    if (m_side->Exchanges.empty()) Begin({});
    String& answer = m_side->Exchanges.back().Answer;
    if (!answer.empty()) answer += u'\n';
    answer += text;
  }
  return {};
}

void LogDiff::Begin(StringView instruction) {
  m_side->Exchanges.push_back({m_side->Entities, String(instruction), {}});
  m_side->Numbers.push_back(m_numbers.try_emplace(ToUpper(instruction), m_numbers.size()).first->second);
}

bool LogDiff::Print(std::ostream& out) const {
  const auto& first = std::get<0>(m_sides);
  const auto& second = std::get<1>(m_sides);
  const auto found = Align(first.Numbers, second.Numbers);
  bool differs = false;
  std::size_t next = 0; // of the second
  const auto printSecondUpTo = [&](std::size_t end) {
    differs |= next < end;
    for (; next < end; ++next) Print(out, '>', second, next, 0);
  };
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (!found[i]) {
      Print(out, '<', first, i, 0);
      differs = true;
      continue;
    }
    printSecondUpTo(*found[i]);
    next = *found[i] + 1;
    const auto place = FindDifference(first.Exchanges[i].Answer, second.Exchanges[*found[i]].Answer, m_tolerance);
    if (!place) continue;
    Print(out, '<', first, i, *place);
    Print(out, '>', second, *found[i], *place);
    differs = true;
  }
  printSecondUpTo(second.Exchanges.size());
  return differs;
}

void LogDiff::Print(std::ostream& out, char mark, const Side& side, std::size_t place, std::size_t difference) {
  const Exchange& exchange = side.Exchanges[place];
  out << mark << ' ' << side.Name << ':' << exchange.Entity << ": " << Excerpt(exchange.Instruction, 0);
  if (!exchange.Answer.empty()) out << " -> " << Excerpt(exchange.Answer, difference);
  out << '\n';
}

} // namespace portico::logtool

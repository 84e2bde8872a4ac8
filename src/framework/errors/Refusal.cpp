#include "framework/errors/Refusal.h"

#include "framework/errors/ErrorState.h"

#include <ctime>
#include <utility>
#include <vector>

namespace portico {

struct Refusal::Content {
  struct Line {
    Procedure Passed;
    std::size_t ValueCount = 0;
  };

  std::int32_t Number = 0;
  std::tm Time{};
  StringView StandardLabel; // empty if it is not standard
  String StandardText;
  StringView Message; // of any other, as the rest is
  std::vector<Line> Lines;
  Params Values; // of all lines
};

Refusal::Refusal() = default;
Refusal::Refusal(Refusal&&) noexcept = default;
Refusal& Refusal::operator=(Refusal&&) noexcept = default;
Refusal::~Refusal() = default;

Refusal::Refusal(std::int32_t Number, StringView Message) {
  constexpr std::size_t usualLines = 6;
  Content& content = Renewed();
  content.Number = Number;
  content.Message = Message;
  content.Lines.reserve(usualLines);
  content.Values.reserve(usualLines);
}

Refusal::Content& Refusal::Renewed() {
  if (!m_content || !m_content->Lines.empty()) m_content = std::make_unique<Content>();
  m_content->Time = HuntERR::Environment().LocalTime();
  return *m_content;
}

/// These are many: the memory of the one before serves.
void Refusal::BecomeStandard(std::int32_t Number, StringView Label, StringView Text) {
  Content& content = Renewed();
  content.Number = Number;
  content.StandardLabel = Label;
  content.StandardText = Text;
}

void Refusal::Pass(const Procedure& procedure, std::initializer_list<Value> values) {
  for (const Value& value : values) m_content->Values.push_back(value.Described());
  m_content->Lines.push_back({procedure, values.size()});
}

// Each pending error replaces all that the one before left behind, but for a text that was collected.
void Refusal::StopHere(const Procedure& procedure, std::initializer_list<Value> values) && {
  Pass(procedure, values);
  if (!HuntERR::KnownErrors().Collected.empty()) HuntERR::SettledErrors();
  HuntERR::KnownErrors().Pending = std::move(*this);
}

void Refusal::Raise() const {
  Record();
  HuntERR::Raise(HuntERR::Err());
}

void Refusal::Record() const {
  const auto& [number, time, standardLabel, standardText, message, lines, values] = *m_content;
  if (!standardLabel.empty()) {
    HuntERR::Load(Error(HuntERR::StandardError(number)));
    HuntERR::PassTail({standardLabel, {standardText}, time}, HuntERR::StopFlags);
    return;
  }
  ErrorRecord record;
  record.Number = number;
  record.Source = u"HuntERR.Check";
  record.Description = String(message);
  HuntERR::Load(Error(std::move(record)));
  auto value = values.begin();
  for (const auto& [passed, count] : lines) {
    const auto next = value + static_cast<std::ptrdiff_t>(count);
    HuntERR::PassTail({passed.Name(), Params(value, next), time}, HuntERR::StopFlags);
    value = next;
  }
}

} // namespace portico

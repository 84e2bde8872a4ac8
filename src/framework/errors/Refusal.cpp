#include "framework/errors/Refusal.h"

#include "framework/errors/ErrorState.h"

#include <ctime>
#include <utility>
#include <vector>

namespace portico {

struct Refusal::Content final : HuntERR::PendingError {
  struct Line {
    Procedure Passed;
    std::size_t ValueCount = 0;
  };

  void Record() const override;

  std::int32_t Number = 0;
  std::tm Time{};
  StringView Message;
  std::vector<Line> Lines;
  Params Values; // of all lines
};

Refusal::Refusal() = default;
Refusal::Refusal(Refusal&&) noexcept = default;
Refusal& Refusal::operator=(Refusal&&) noexcept = default;
Refusal::~Refusal() = default;

Refusal::Refusal(std::int32_t Number, StringView Message) : m_content(std::make_unique<Content>()) {
  constexpr std::size_t usualLines = 6;
  m_content->Number = Number;
  m_content->Time = HuntERR::Environment().LocalTime();
  m_content->Message = Message;
  m_content->Lines.reserve(usualLines);
  m_content->Values.reserve(usualLines);
}

void Refusal::Pass(const Procedure& procedure, std::initializer_list<Value> values) {
  for (const Value& value : values) m_content->Values.push_back(value.Described());
  m_content->Lines.push_back({procedure, values.size()});
}

// Each pending error replaces all that the one before left behind, but for a text that was collected.
void Refusal::StopHere(const Procedure& procedure, std::initializer_list<Value> values) && {
  Pass(procedure, values);
  if (!HuntERR::KnownErrors().Collected.empty()) HuntERR::SettledErrors();
  HuntERR::KnownErrors().Pending = std::move(m_content);
}

void Refusal::Raise() const {
  m_content->Record();
  HuntERR::Raise(HuntERR::Err());
}

void Refusal::Content::Record() const {
  ErrorRecord record;
  record.Number = Number;
  record.Source = u"HuntERR.Check";
  record.Description = String(Message);
  HuntERR::Load(Error(std::move(record)));
  auto value = Values.begin();
  for (const auto& [passed, count] : Lines) {
    const auto next = value + static_cast<std::ptrdiff_t>(count);
    HuntERR::ErrorIn(passed.Name(), Params(value, next), HuntERR::StopFlags, Time);
    value = next;
  }
}

} // namespace portico

#include "support/ScriptedInstrument.h"

namespace portico::test {

ScriptedInstrument::ScriptedInstrument(InstrumentScript script, std::string& received)
    : script_(std::move(script)), received_(received) {}

void ScriptedInstrument::Write(std::string_view bytes, simulator::TimePoint now) {
  received_.append(bytes);
  input_.append(bytes);
  for (std::string command; TakeCommand(input_, command);) {
    const auto reaction = script_.find(command);
    if (reaction == script_.end() || reaction->second.kind != Reaction::Kind::Answer) continue;
    responses_.push_back({now + reaction->second.delay, reaction->second.text});
  }
}

std::optional<std::string> ScriptedInstrument::Read(simulator::TimePoint now) {
  if (responses_.empty() || responses_.front().ready > now) return std::nullopt;
  std::string text = std::move(responses_.front().text);
  responses_.pop_front();
  return text;
}

std::optional<simulator::TimePoint> ScriptedInstrument::NextEvent() const {
  if (responses_.empty()) return std::nullopt;
  return responses_.front().ready;
}

} // namespace portico::test

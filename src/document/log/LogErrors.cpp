#include "document/log/LogErrors.h"

#include "document/entities/IDataEntity.h"
#include "drivers/DriverStatus.h"
#include "framework/shared/ErrorAnswer.h"

#include <utility>

namespace portico {
namespace {

constexpr StringView PacingQuery = u"*OPC?";
constexpr std::size_t LongestMessage = 2 * drivers::MaxErrorMessage; // with a line end, and more

StringView WithoutLineEnds(StringView text) { return text.substr(0, text.find_last_not_of(NewLine) + 1); }

bool IsDriverMessage(StringView text) {
  return text.size() <= LongestMessage && drivers::IsStatusMessage(ToUtf8(Trim(WithoutLineEnds(text))));
}

} // namespace

void LogErrors::Begin() {
  m_asksForError = false;
  m_instruction.clear();
}

LogErrors::Finding LogErrors::Add(StringView kind, StringView text) {
  const bool answersErrorQuery = std::exchange(m_asksForError, false);
  if (kind == DataTypeName::Instruction) m_instruction = WithoutLineEnds(text);
  if (kind == DataTypeName::AutomaticInstruction) {
    m_asksForError = !EqualNoCase(Trim(WithoutLineEnds(text)), PacingQuery);
  }
  if (kind != DataTypeName::Response) return Finding::None;
  if (answersErrorQuery && ReportsError(text)) return Finding::ErrorAnswer;
  return IsDriverMessage(text) ? Finding::DriverMessage : Finding::None;
}

} // namespace portico

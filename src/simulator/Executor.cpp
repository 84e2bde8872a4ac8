#include "simulator/Executor.h"

#include "simulator/ScpiError.h"

#include <algorithm>
#include <utility>

namespace portico::simulator {
namespace {

/// What a message in the queue costs besides its characters.
constexpr std::size_t kQueuedMessageBytes = sizeof(std::string);

/// After a command or query error the rest of the message is not to be trusted, or not to be answered. An execution
/// error fails its own unit only.
bool AbandonsMessage(ErrorCode code) {
  const int number = static_cast<int>(code);
  return (number <= -100 && number > -200) || number <= -400;
}

} // namespace

Executor::Executor(const CommandTree& commands, StatusModel& status, ResponseQueue& responses)
    : m_commands(commands), m_status(status), m_responses(responses) {}

void Executor::Submit(std::string message) {
  m_inputBytes += message.size() + kQueuedMessageBytes;
  m_input.push_back(std::move(message));
}

void Executor::Run(TimePoint now) {
  while (m_operation && m_operation->end <= now) {
    m_clock = m_operation->end;
    EndOperation();
    Proceed();
  }
  m_clock = std::max(m_clock, now);
  Proceed();
}

std::optional<TimePoint> Executor::OperationEnd() const {
  if (!m_operation) return std::nullopt;
  return m_operation->end;
}

void Executor::Proceed() {
  for (;;) {
    if (m_hold) {
      if (m_operation) return;
      Guard(std::exchange(m_hold, nullptr));
    } else if (m_message) {
      if (!ExecuteUnit()) FinishMessage();
    } else if (!BeginMessage()) {
      return;
    }
  }
}

bool Executor::BeginMessage() {
  if (m_halted || m_input.empty() || m_responses.Full()) return false;
  m_message = std::move(m_input.front());
  m_input.pop_front();
  m_inputBytes -= m_message->size() + kQueuedMessageBytes;
  m_parser = UnitParser(*m_message);
  return true;
}

/// False at the end of the message.
bool Executor::ExecuteUnit() {
  bool more = false;
  Guard([this, &more] {
    more = !m_halted && m_parser.Next(m_unit);
    if (more) m_commands.Invoke(m_unit);
  });
  return more;
}

void Executor::FinishMessage() {
  m_message.reset();
  if (std::exchange(m_responding, false)) m_responses.Push(std::exchange(m_response, {}), m_clock);
}

template <class Action>
void Executor::Guard(Action action) {
  try {
    action();
  } catch (const ScpiError& error) {
    m_status.Raise(error.Code());
    if (AbandonsMessage(error.Code())) FinishMessage();
  }
}

void Executor::Respond(std::string_view data) {
  if (m_response.size() + data.size() >= kLongestResponse) {
    m_response = {};
    m_responding = false;
    throw ScpiError(ErrorCode::QueryDeadlocked);
  }
  if (std::exchange(m_responding, true)) m_response += ';';
  m_response += data;
}

void Executor::StartOperation(Duration duration, std::uint16_t condition, std::function<void()> atEnd) {
  if (m_operation) m_status.Operation().Clear(m_operation->condition);
  m_operation = {m_clock + duration, condition, std::move(atEnd)};
  m_status.Operation().Set(condition);
}

void Executor::CancelOperation() {
  if (!m_operation) return;
  m_operation->atEnd = nullptr;
  EndOperation();
}

void Executor::EndOperation() {
  const Operation ended = std::move(*m_operation);
  m_operation.reset();
  m_status.Operation().Clear(ended.condition);
  if (ended.atEnd) ended.atEnd();
  if (std::exchange(m_reportCompletion, false)) m_status.SetEvent(event::kOperationComplete);
}

void Executor::WhenIdle(std::function<void()> then) {
  if (m_operation) {
    m_hold = std::move(then);
  } else {
    then();
  }
}

void Executor::ReportCompletion() {
  if (m_operation) {
    m_reportCompletion = true;
  } else {
    m_status.SetEvent(event::kOperationComplete);
  }
}

} // namespace portico::simulator

#include "simulator/status/Executor.h"

#include "scpi/ScpiError.h"

#include <algorithm>
#include <utility>

namespace portico::simulator {
namespace {

/// After a command or query error the rest of the message is not to be trusted, or not to be answered. An execution
/// error fails its own unit only.
bool AbandonsMessage(scpi::ErrorCode code) {
  const int number = static_cast<int>(code);
  return (number <= -100 && number > -200) || number <= -400;
}

} // namespace

Executor::Executor(const CommandTree& commands, StatusModel& status) : m_commands(commands), m_status(status) {}

std::shared_ptr<MessageExchange> Executor::Join(MessageExchange::Handler handler) {
  return m_exchanges.emplace_back(std::make_shared<MessageExchange>(std::move(handler)));
}

void Executor::Run(TimePoint now) {
  Proceed(); // a connection that was lost since may have let go of its input
  while (m_operation && m_operation->End <= now) {
    m_clock = m_operation->End;
    EndOperation();
    Proceed();
  }
  m_clock = std::max(m_clock, now);
  Proceed();
  std::erase_if(m_exchanges, [](const auto& exchange) { return exchange->Abandoned() && !exchange->Busy(); });
}

std::optional<TimePoint> Executor::OperationEnd() const {
  if (!m_operation || m_operation->End == TimePoint::max()) return std::nullopt;
  return m_operation->End;
}

void Executor::Proceed() {
  for (bool more = true; more;) {
    more = false;
    while (ReleaseOne()) {
    }
    for (const auto& exchange : m_exchanges) {
      if (!exchange->Begin()) continue;
      CarryOn(exchange);
      more = true;
    }
  }
}

/// Goes on with the message that may go on first: one that awaited a certain operation before those that were only
/// waiting for their turn.
bool Executor::ReleaseOne() {
  auto released = std::find_if(m_holds.begin(), m_holds.end(), [this](const Hold& hold) {
    return hold.Operation && !(m_operation && m_operation->Number == *hold.Operation);
  });
  if (released == m_holds.end() && !m_operation) released = m_holds.begin();
  if (released == m_holds.end()) return false;
  Hold hold = std::move(*released);
  m_holds.erase(released);
  CarryOn(hold.Exchange, std::move(hold.Then));
  return true;
}

/// Goes on with a message until its end or until it is held.
void Executor::CarryOn(const std::shared_ptr<MessageExchange>& exchange, std::function<void()> first) {
  m_current = exchange;
  m_currentHeld = false;
  if (first) Guard(std::move(first));
  while (!m_currentHeld && exchange->Begun()) {
    if (!ExecuteUnit()) FinishMessage();
  }
  m_current.reset();
}

/// False at the end of the message.
bool Executor::ExecuteUnit() {
  bool more = false;
  Guard([this, &more] {
    if (m_current->HandOver()) return;
    more = m_current->Next(m_unit);
    if (more) m_commands.Invoke(m_unit);
  });
  return more;
}

template <class Action>
void Executor::Guard(Action action) {
  try {
    action();
  } catch (const scpi::ScpiError& error) {
    m_status.Raise(error.Code());
    if (AbandonsMessage(error.Code())) FinishMessage();
  }
}

void Executor::StartOperation(Duration duration, std::uint16_t condition, std::function<void()> atEnd) {
  if (m_operation) m_status.Operation().Clear(m_operation->Condition);
  const TimePoint end = duration == Forever ? TimePoint::max() : m_clock + duration;
  m_operation = {end, condition, std::move(atEnd), ++m_operations};
  m_status.Operation().Set(condition);
}

void Executor::CancelOperation() {
  if (!m_operation) return;
  m_operation->AtEnd = nullptr;
  EndOperation();
}

void Executor::EndOperation() {
  const Operation ended = std::move(*m_operation);
  m_operation.reset();
  m_status.Operation().Clear(ended.Condition);
  if (ended.AtEnd) ended.AtEnd();
  if (m_operation) return;
  if (std::exchange(m_reportCompletion, false)) m_status.SetEvent(EventBit::OperationComplete);
}

void Executor::WhenIdle(std::function<void()> then) {
  if (m_operation) {
    AddHold(std::move(then), std::nullopt);
  } else {
    then();
  }
}

void Executor::Await(std::function<void()> then) { AddHold(std::move(then), m_operation->Number); }

void Executor::Supersede(std::function<void()> then) {
  const bool awaited = m_operation && std::any_of(m_holds.begin(), m_holds.end(), [this](const Hold& hold) {
                         return hold.Operation == m_operation->Number;
                       });
  if (!awaited) CancelOperation();
  WhenIdle(std::move(then));
}

void Executor::AddHold(std::function<void()> then, std::optional<std::uint64_t> operation) {
  m_holds.push_back({m_current, std::move(then), operation});
  m_currentHeld = true;
}

void Executor::ReportCompletion() {
  if (m_operation) {
    m_reportCompletion = true;
  } else {
    m_status.SetEvent(EventBit::OperationComplete);
  }
}

} // namespace portico::simulator

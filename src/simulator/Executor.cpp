#include "simulator/Executor.h"

#include "simulator/ScpiError.h"

#include <algorithm>
#include <utility>

namespace portico::simulator {
namespace {

/// After a command or query error the rest of the message is not to be trusted, or not to be answered. An execution
/// error fails its own unit only.
bool AbandonsMessage(ErrorCode code) {
  const int number = static_cast<int>(code);
  return (number <= -100 && number > -200) || number <= -400;
}

} // namespace

Executor::Executor(const CommandTree& commands, StatusModel& status, ResponseQueue& responses)
    : commands_(commands), status_(status), responses_(responses) {}

void Executor::Submit(std::string message) {
  inputBytes_ += message.size() + sizeof(std::string);
  input_.push_back(std::move(message));
}

void Executor::Run(TimePoint now) {
  while (operation_ && operation_->end <= now) {
    clock_ = operation_->end;
    EndOperation();
    Proceed();
  }
  clock_ = std::max(clock_, now);
  Proceed();
}

std::optional<TimePoint> Executor::OperationEnd() const {
  if (!operation_) return std::nullopt;
  return operation_->end;
}

void Executor::Proceed() {
  for (;;) {
    if (hold_) {
      if (operation_) return;
      Guard(std::exchange(hold_, nullptr));
    } else if (message_) {
      if (!ExecuteUnit()) FinishMessage();
    } else if (!BeginMessage()) {
      return;
    }
  }
}

bool Executor::BeginMessage() {
  if (halted_ || input_.empty() || responses_.Full()) return false;
  message_ = std::move(input_.front());
  input_.pop_front();
  inputBytes_ -= message_->size() + sizeof(std::string);
  parser_ = UnitParser(*message_);
  return true;
}

/// False at the end of the message.
bool Executor::ExecuteUnit() {
  bool more = false;
  Guard([this, &more] {
    more = !halted_ && parser_.Next(unit_);
    if (more) commands_.Invoke(unit_);
  });
  return more;
}

void Executor::FinishMessage() {
  message_.reset();
  if (std::exchange(responding_, false)) responses_.Push(std::exchange(response_, {}), clock_);
}

template <class Action>
void Executor::Guard(Action action) {
  try {
    action();
  } catch (const ScpiError& error) {
    status_.Raise(error.Code());
    if (AbandonsMessage(error.Code())) FinishMessage();
  }
}

void Executor::Respond(std::string_view data) {
  if (response_.size() + data.size() >= kLongestResponse) {
    response_ = {};
    responding_ = false;
    throw ScpiError(ErrorCode::QueryDeadlocked);
  }
  if (std::exchange(responding_, true)) response_ += ';';
  response_ += data;
}

void Executor::StartOperation(Duration duration, std::uint16_t condition, std::function<void()> atEnd) {
  if (operation_) status_.Operation().Clear(operation_->condition);
  operation_ = {clock_ + duration, condition, std::move(atEnd)};
  status_.Operation().Set(condition);
}

void Executor::CancelOperation() {
  if (!operation_) return;
  operation_->atEnd = nullptr;
  EndOperation();
}

void Executor::EndOperation() {
  const Operation ended = std::move(*operation_);
  operation_.reset();
  status_.Operation().Clear(ended.condition);
  if (ended.atEnd) ended.atEnd();
  if (std::exchange(reportCompletion_, false)) status_.SetEvent(event::kOperationComplete);
}

void Executor::WhenIdle(std::function<void()> then) {
  if (operation_) {
    hold_ = std::move(then);
  } else {
    then();
  }
}

void Executor::ReportCompletion() {
  if (operation_) {
    reportCompletion_ = true;
  } else {
    status_.SetEvent(event::kOperationComplete);
  }
}

} // namespace portico::simulator

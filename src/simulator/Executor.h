#pragma once

#include "simulator/CommandTree.h"
#include "simulator/ResponseQueue.h"
#include "simulator/StatusModel.h"
#include "simulator/UnitParser.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace portico::simulator {

/// Carries out program messages in their order and in the simulated time.
///
/// A command may start an operation that takes time; commands behind it go on until one needs the operation to have
/// ended and holds the message, and with it all the input behind it. A full response queue holds the input as well.
class Executor {
public:
  using Duration = TimePoint::duration;

  /// The longest response message; a query that would make it longer is deadlocked.
  static constexpr std::size_t kLongestResponse = 64U << 20U;

  /// All three must outlive the executor.
  Executor(const CommandTree& commands, StatusModel& status, ResponseQueue& responses);

  /// Queues a program message, which the next Run() begins with when its turn comes.
  void Submit(std::string message);

  /// Does all that is to be done up to `now`. What an operation's end releases happens at the time of that end, however
  /// late the call comes.
  void Run(TimePoint now);

  /// When a pending operation ends.
  std::optional<TimePoint> OperationEnd() const;

  /// The memory that waiting messages take, in bytes.
  std::size_t InputBytes() const { return m_inputBytes; }
  /// Whether the unread responses, and no operation, are what holds the input.
  bool HeldByOutput() const { return !m_hold && m_responses.Full(); }

  // For the commands.

  /// Adds the data of one query to the response message.
  void Respond(std::string_view data);
  /// Begins an operation, in place of a pending one. While it is pending the bit of the operation status register is
  /// set; at its end `atEnd` is called.
  void StartOperation(Duration duration, std::uint16_t condition, std::function<void()> atEnd = {});
  /// Ends the pending operation, if any, before its time and without its results.
  void CancelOperation();
  bool OperationPending() const { return m_operation.has_value(); }
  /// Holds the message until no operation is pending, and calls `then`; at once if none is.
  void WhenIdle(std::function<void()> then);
  /// `*OPC`: sets the event bit when no operation is pending any more.
  void ReportCompletion();
  /// The completion need not be reported any more.
  void ForgetCompletion() { m_reportCompletion = false; }
  /// Whether a response is unread or being made.
  bool MessageAvailable() const { return m_responding || !m_responses.Empty(); }
  /// Carries out no further command, ever.
  void Halt() { m_halted = true; }
  bool Halted() const { return m_halted; }

private:
  struct Operation {
    TimePoint end;
    std::uint16_t condition;
    std::function<void()> atEnd;
  };

  void EndOperation();
  void Proceed();
  bool BeginMessage();
  bool ExecuteUnit();
  void FinishMessage();
  template <class Action>
  void Guard(Action action);

  const CommandTree& m_commands;
  StatusModel& m_status;
  ResponseQueue& m_responses;

  TimePoint m_clock{};
  std::deque<std::string> m_input;
  std::size_t m_inputBytes = 0;
  bool m_halted = false;

  std::optional<std::string> m_message; ///< the one that is being carried out
  UnitParser m_parser;
  Unit m_unit;
  std::string m_response;
  bool m_responding = false;

  std::optional<Operation> m_operation;
  std::function<void()> m_hold; ///< what goes on when the operation has ended
  bool m_reportCompletion = false;
};

} // namespace portico::simulator

#pragma once

#include "simulator/language/CommandTree.h"
#include "simulator/status/MessageExchange.h"
#include "simulator/status/StatusModel.h"

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace portico::simulator {

/// Carries out the program messages of all connections in the simulated time: those of one connection in their order,
/// those of several in turn, each message as a whole unless it is held.
///
/// A command may start an operation, which takes time; the device has one at a time. Commands go on until one needs the
/// operation to have ended and holds its message, and with it all the input behind it on the same connection. A full
/// response queue holds its connection's input as well.
class Executor {
public:
  using Duration = TimePoint::duration;

  /// The duration of an operation that does not end by itself.
  static constexpr Duration Forever = Duration::max();

  /// Both must outlive the executor.
  Executor(const CommandTree& commands, StatusModel& status);

  /// A new connection's exchange. It is worked off until it has been abandoned and is done. With a handler, that
  /// carries out its messages as a whole, in place of the commands.
  std::shared_ptr<MessageExchange> Join(MessageExchange::Handler handler = {});

  /// Does all that is to be done up to `now`. What an operation's end releases happens at the time of that end, however
  /// late the call comes.
  void Run(TimePoint now);

  /// How the device misbehaves.
  Misbehaviour& Faults() { return m_faults; }

  /// When a pending operation ends; none if it does not by itself.
  std::optional<TimePoint> OperationEnd() const;

  // For the commands. What concerns answers concerns the connection whose message is being carried out.

  TimePoint Now() const { return m_clock; }
  /// Adds the data of one query to the response message.
  void Respond(std::string_view data) { m_current->Respond(data); }
  /// Ends the response message, so that what is added next is another one.
  void EndResponse() { m_current->EndResponse(m_clock, m_faults); }
  MessageExchange& Current() { return *m_current; }
  /// Begins an operation, in place of a pending one. While it is pending the bit of the operation status register is
  /// set; at its end `atEnd` is called, which may begin another that goes on with it.
  void StartOperation(Duration duration, std::uint16_t condition, std::function<void()> atEnd = {});
  /// Ends the pending operation, if any, before its time and without its results.
  void CancelOperation();
  bool OperationPending() const { return m_operation.has_value(); }
  /// An operation is pending that does not end by itself.
  bool OperationIsOpen() const { return OperationPending() && !OperationEnd(); }
  /// Holds the message until no operation is pending, and calls `then`; at once if none is.
  void WhenIdle(std::function<void()> then);
  /// Holds the message until the operation that is pending now has ended, with its results or without, and calls `then`
  /// before anybody can begin another.
  void Await(std::function<void()> then);
  /// Ends the pending operation without its results and calls `then`; but if another connection's message awaits those
  /// results, only when it has got them.
  void Supersede(std::function<void()> then);
  /// `*OPC`: sets the event bit when no operation is pending any more.
  void ReportCompletion();
  /// The completion need not be reported any more.
  void ForgetCompletion() { m_reportCompletion = false; }

private:
  struct Operation {
    TimePoint End;
    std::uint16_t Condition;
    std::function<void()> AtEnd;
    std::uint64_t Number;
  };
  /// A message that is held.
  struct Hold {
    std::shared_ptr<MessageExchange> Exchange;
    std::function<void()> Then;
    std::optional<std::uint64_t> Operation; ///< the one whose end it awaits; without one, that of any
  };

  void EndOperation();
  void Proceed();
  bool ReleaseOne();
  void CarryOn(const std::shared_ptr<MessageExchange>& exchange, std::function<void()> first = {});
  bool ExecuteUnit();
  void AddHold(std::function<void()> then, std::optional<std::uint64_t> operation);
  void FinishMessage() { m_current->Finish(m_clock, m_faults); }
  template <class Action>
  void Guard(Action action);

  const CommandTree& m_commands;
  StatusModel& m_status;
  TimePoint m_clock{};
  std::vector<std::shared_ptr<MessageExchange>> m_exchanges;
  std::list<Hold> m_holds; ///< the longest held first
  std::shared_ptr<MessageExchange> m_current;
  bool m_currentHeld = false;
  scpi::Unit m_unit;
  Misbehaviour m_faults;

  std::optional<Operation> m_operation;
  std::uint64_t m_operations = 0; ///< how many there have been
  bool m_reportCompletion = false;
};

} // namespace portico::simulator

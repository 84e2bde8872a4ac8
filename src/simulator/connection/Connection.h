#pragma once

#include "simulator/devices/Device.h"
#include "simulator/status/MessageExchange.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace portico::simulator {

/// One connection to a device, in whole messages: what every protocol stands on. Its input, its answers and the end
/// that `SIMulator:CLOSe` asks for are its own; all else is the device's.
///
/// It behaves like an instrument behind a socket, where an answer waits until it is read: new input never interrupts an
/// unread answer, so that there is no -410, and a Read() with nothing asked is polling, so that there is no -420. When
/// both the answers and the input waiting behind them reach their bounds, the query is deadlocked: -430, and the
/// unread answers are dropped.
class Connection {
public:
  static constexpr std::size_t LongestMessage = 1U << 20U; ///< beyond it -363, and the message is discarded
  static constexpr std::size_t MostInputBytes = 8U << 20U; ///< of messages that wait for their turn

  /// `device` must outlive the connection.
  explicit Connection(Device& device);
  /// What was sent goes on; its answers go nowhere.
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Does all that the device has to do up to `now`, whoever asked for it.
  void Advance(TimePoint now);
  /// Takes a complete program message, without its terminator.
  void Submit(std::string message, TimePoint now);
  /// A message became longer than LongestMessage and was discarded.
  void ReportOverrun();

  /// The next whole response message that is ready at `now`, its line feed included, or a piece without one of an
  /// answer without end. What is wrong with it is then asked of the device's Faults().
  std::optional<std::string> Read(TimePoint now);
  /// As in SimulatedConnection.
  std::optional<TimePoint> NextEvent() const;

  /// Whether `SIMulator:CLOSe` asked for the end of the connection, once the answers so far are read. From then on
  /// input is ignored.
  bool CloseRequested() const { return m_exchange->Halted(); }
  /// Whether up to 64 KiB more can be submitted without loss.
  bool AcceptsInput() const { return m_exchange->InputBytes() < MostInputBytes / 2; }
  /// Whether something that was sent is still to be carried out, or an answer to be read.
  bool Busy() const { return m_exchange->Busy(); }

private:
  void Seen(TimePoint now);

  StatusModel& m_status;
  Executor& m_executor;
  const std::shared_ptr<MessageExchange> m_exchange;
  TimePoint m_lastCall{};
  std::size_t m_answersSeen = 0; ///< how many there had been at the last call
};

} // namespace portico::simulator

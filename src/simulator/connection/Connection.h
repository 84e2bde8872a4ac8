#pragma once

#include "simulator/devices/Instrument.h"
#include "simulator/status/MessageExchange.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace portico::simulator {

/// One connection to an instrument, in whole messages: what every protocol stands on. Its input, its answers and the
/// end that `SIMulator:CLOSe` asks for are its own; all else is the instrument's.
///
/// It behaves like an instrument behind a socket, where an answer waits until it is read: new input never interrupts an
/// unread answer, so that there is no -410, and a Read() with nothing asked is polling, so that there is no -420. When
/// both the answers and the input waiting behind them reach their bounds, the query is deadlocked: -430, and the
/// unread answers are dropped.
class Connection {
public:
  static constexpr std::size_t LongestMessage = 1U << 20U; ///< beyond it -363, and the message is discarded
  static constexpr std::size_t MostInputBytes = 8U << 20U; ///< of messages that wait for their turn

  /// `instrument` must outlive the connection.
  explicit Connection(Instrument& instrument);
  /// What was sent goes on; its answers go nowhere.
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Does all that the instrument has to do up to `now`, whoever asked for it.
  void Advance(TimePoint now);
  /// Takes a complete program message, without its terminator.
  void Submit(std::string message, TimePoint now);
  /// A message became longer than LongestMessage and was discarded.
  void ReportOverrun();

  /// Device clear: drops what waits to be carried out, the rest of the message that is held, and all answers.
  void Clear(TimePoint now);
  /// A client has sent the next message before it took the answer to the last one: -410.
  void ReportInterrupted();
  /// A client has waited for an answer, and nothing that could be answered was asked: -420.
  void ReportUnterminated();

  /// The next whole response message that is ready at `now`, its line feed included, or a piece without one of an
  /// answer without end. What is wrong with it is then asked of the instrument's Faults().
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
  /// Whether an answer waits to be read, or is being made.
  bool MessageAvailable() const { return m_exchange->MessageAvailable(); }
  /// The status byte as a serial poll gives it, of a protocol that knows best whether a message is available: in bit 6
  /// whether this connection's client has not been told of a reason for service, which it now is.
  std::uint8_t SerialPoll(bool messageAvailable, TimePoint now);
  /// The client has the whole of an answer, so that the next one is a new reason for service.
  void AnswerTaken();

private:
  void Seen(TimePoint now);
  std::uint8_t ReasonsForService(bool messageAvailable) const;

  Instrument& m_instrument;
  StatusModel& m_status;
  Executor& m_executor;
  std::shared_ptr<MessageExchange> m_exchange;
  TimePoint m_lastCall{};
  std::size_t m_answersSeen = 0; ///< how many there had been at the last call
  std::uint8_t m_polled = 0;     ///< the reasons for service that the client knows of and that have stood since
};

} // namespace portico::simulator

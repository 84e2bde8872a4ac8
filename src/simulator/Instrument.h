#pragma once

#include "simulator/CommonCommands.h"
#include "simulator/FaultCommands.h"
#include "simulator/MessageFramer.h"
#include "simulator/SimulatedInstrument.h"
#include "simulator/SystemCommands.h"

#include <functional>

namespace portico::simulator {

/// A simulated instrument as a whole: the device behind its message exchange. It behaves like an instrument behind a
/// socket, where an answer waits until it is read: new input never interrupts an unread answer, so that there is no
/// -410, and a Read() with nothing asked is polling, so that there is no -420. When both the answers and the input
/// waiting behind them reach their bounds, the query is deadlocked: -430, and the unread answers are dropped.
class Instrument final : public SimulatedInstrument {
public:
  static constexpr std::size_t kLongestMessage = 1U << 20U; ///< beyond it -363, and the message is discarded
  static constexpr std::size_t kMostInputBytes = 8U << 20U; ///< of messages that wait for their turn

  /// See SimulatedInstrument::Make().
  static std::unique_ptr<Instrument> Make(std::string_view device, std::uint64_t seed);

  using DeviceMaker = std::function<std::unique_ptr<Device>(Executor&, StatusModel&)>;
  Instrument(const DeviceMaker& makeDevice, std::uint64_t seed);

  void Write(std::string_view bytes, TimePoint now) override;
  std::optional<std::string> Read(TimePoint now) override;
  std::optional<TimePoint> NextEvent() const override;

  // For a server.

  /// Whether `SIMulator:CLOSe` asked for the end of the connection, once the answers so far are read. From then on
  /// input is ignored.
  bool CloseRequested() const { return m_executor.Halted(); }
  /// Whether up to 64 KiB more can be written without loss.
  bool AcceptsInput() const { return m_executor.InputBytes() < kMostInputBytes / 2; }

private:
  void Submit(std::string message, TimePoint now);

  StatusModel m_status;
  ResponseQueue m_responses;
  CommandTree m_tree;
  Executor m_executor{m_tree, m_status, m_responses};
  std::unique_ptr<Device> m_device;
  CommonCommands m_common;
  SystemCommands m_system{m_executor, m_status};
  FaultCommands m_faults;
  MessageFramer m_framer{kLongestMessage};
  TimePoint m_lastCall{};
};

} // namespace portico::simulator

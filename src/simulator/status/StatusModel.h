#pragma once

#include "simulator/status/ErrorQueue.h"

#include <cstdint>

namespace portico::simulator {

/// Bits of the standard event status register (IEEE 488.2).
namespace event {
constexpr std::uint8_t kOperationComplete = 1U << 0U;
constexpr std::uint8_t kQueryError = 1U << 2U;
constexpr std::uint8_t kDeviceError = 1U << 3U;
constexpr std::uint8_t kExecutionError = 1U << 4U;
constexpr std::uint8_t kCommandError = 1U << 5U;
constexpr std::uint8_t kPowerOn = 1U << 7U;
} // namespace event

/// Bits of the condition registers (SCPI-99) that the devices use.
namespace operation {
constexpr std::uint16_t kSettling = 1U << 1U;
constexpr std::uint16_t kSweeping = 1U << 3U;
constexpr std::uint16_t kMeasuring = 1U << 4U;
constexpr std::uint16_t kWaitingForTrigger = 1U << 5U;
} // namespace operation
namespace questionable {
constexpr std::uint16_t kVoltage = 1U << 0U;
constexpr std::uint16_t kCurrent = 1U << 1U;
constexpr std::uint16_t kTemperature = 1U << 4U;
constexpr std::uint16_t kFrequency = 1U << 5U;
// From bit 9 on they are each model's own.
constexpr std::uint16_t kResistance = 1U << 9U;
constexpr std::uint16_t kOvervoltage = 1U << 9U;
constexpr std::uint16_t kOvercurrent = 1U << 10U;
} // namespace questionable

/// A SCPI status register: a condition, an event that latches each rise of a condition, and a mask for the summary.
class StatusRegister {
public:
  void Set(std::uint16_t bits);
  void Clear(std::uint16_t bits);

  std::uint16_t Condition() const { return m_condition; }
  std::uint16_t Enable() const { return m_enable; }
  /// Bit 15 is not used, so that the value is never negative for a client with 16-bit integers.
  void SetEnable(std::uint16_t mask) { m_enable = mask & 0x7FFFU; }

  /// The event register, which reading clears.
  std::uint16_t TakeEvent();
  bool Summary() const { return (m_event & m_enable) != 0; }

private:
  std::uint16_t m_condition = 0;
  std::uint16_t m_event = 0;
  std::uint16_t m_enable = 0;
};

/// The status reporting of IEEE 488.2 and SCPI-99, with the error queue.
class StatusModel {
public:
  /// Queues an error and sets its class's bit of the event register.
  void Raise(ErrorCode code);

  void SetEvent(std::uint8_t bits) { m_event |= bits; }
  /// `*ESR?`: the event register, which reading clears.
  std::uint8_t TakeEvent();

  std::uint8_t EventEnable() const { return m_eventEnable; }
  void SetEventEnable(std::uint8_t mask) { m_eventEnable = mask; }
  std::uint8_t ServiceEnable() const { return m_serviceEnable; }
  /// Bit 6, which is the summary itself, cannot be enabled.
  void SetServiceEnable(std::uint8_t mask) { m_serviceEnable = mask & 0xBFU; }

  /// The status byte as `*STB?` reports it, with the master summary in bit 6.
  std::uint8_t StatusByte(bool messageAvailable) const;

  /// `*CLS`: events and errors, not masks.
  void Clear();
  /// `STATus:PRESet`: the masks of the two SCPI registers.
  void Preset();

  ErrorQueue& Errors() { return m_errors; }
  StatusRegister& Operation() { return m_operation; }
  StatusRegister& Questionable() { return m_questionable; }

private:
  ErrorQueue m_errors;
  StatusRegister m_operation;
  StatusRegister m_questionable;
  std::uint8_t m_event = event::kPowerOn;
  std::uint8_t m_eventEnable = 0;
  std::uint8_t m_serviceEnable = 0;
};

} // namespace portico::simulator

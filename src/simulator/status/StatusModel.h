#pragma once

#include "simulator/status/ErrorQueue.h"

#include <cstdint>

namespace portico::simulator {

/// Bits of the standard event status register (IEEE 488.2).
namespace EventBit {
constexpr std::uint8_t OperationComplete = 1U << 0U;
constexpr std::uint8_t QueryError = 1U << 2U;
constexpr std::uint8_t DeviceError = 1U << 3U;
constexpr std::uint8_t ExecutionError = 1U << 4U;
constexpr std::uint8_t CommandError = 1U << 5U;
constexpr std::uint8_t PowerOn = 1U << 7U;
} // namespace EventBit

/// Bits of the status byte that are asked for apart.
namespace StatusBit {
constexpr std::uint8_t MessageAvailable = 1U << 4U;
/// That service is requested, or the master summary.
constexpr std::uint8_t Service = 1U << 6U;
} // namespace StatusBit

/// Bits of the condition registers (SCPI-99) that the devices use.
namespace OperationBit {
constexpr std::uint16_t Settling = 1U << 1U;
constexpr std::uint16_t Sweeping = 1U << 3U;
constexpr std::uint16_t Measuring = 1U << 4U;
constexpr std::uint16_t WaitingForTrigger = 1U << 5U;
} // namespace OperationBit
namespace QuestionableBit {
constexpr std::uint16_t Voltage = 1U << 0U;
constexpr std::uint16_t Current = 1U << 1U;
constexpr std::uint16_t Temperature = 1U << 4U;
constexpr std::uint16_t Frequency = 1U << 5U;
// From bit 9 on they are each model's own.
constexpr std::uint16_t Resistance = 1U << 9U;
constexpr std::uint16_t Overvoltage = 1U << 9U;
constexpr std::uint16_t Overcurrent = 1U << 10U;
} // namespace QuestionableBit

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
  void Raise(scpi::ErrorCode code);

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
  std::uint8_t m_event = EventBit::PowerOn;
  std::uint8_t m_eventEnable = 0;
  std::uint8_t m_serviceEnable = 0;
};

} // namespace portico::simulator

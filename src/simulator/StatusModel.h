#pragma once

#include "simulator/ErrorQueue.h"

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
} // namespace operation
namespace questionable {
constexpr std::uint16_t kVoltage = 1U << 0U;
constexpr std::uint16_t kCurrent = 1U << 1U;
constexpr std::uint16_t kResistance = 1U << 9U;
} // namespace questionable

/// A SCPI status register: a condition, an event that latches each rise of a condition, and a mask for the summary.
class StatusRegister {
public:
  void Set(std::uint16_t bits);
  void Clear(std::uint16_t bits);

  std::uint16_t Condition() const { return condition_; }
  std::uint16_t Enable() const { return enable_; }
  /// Bit 15 is not used, so that the value is never negative for a client with 16-bit integers.
  void SetEnable(std::uint16_t mask) { enable_ = mask & 0x7FFFU; }

  /// The event register, which reading clears.
  std::uint16_t TakeEvent();
  bool Summary() const { return (event_ & enable_) != 0; }

private:
  std::uint16_t condition_ = 0;
  std::uint16_t event_ = 0;
  std::uint16_t enable_ = 0;
};

/// The status reporting of IEEE 488.2 and SCPI-99, with the error queue.
class StatusModel {
public:
  /// Queues an error and sets its class's bit of the event register.
  void Raise(ErrorCode code);

  void SetEvent(std::uint8_t bits) { event_ |= bits; }
  /// `*ESR?`: the event register, which reading clears.
  std::uint8_t TakeEvent();

  std::uint8_t EventEnable() const { return eventEnable_; }
  void SetEventEnable(std::uint8_t mask) { eventEnable_ = mask; }
  std::uint8_t ServiceEnable() const { return serviceEnable_; }
  /// Bit 6, which is the summary itself, cannot be enabled.
  void SetServiceEnable(std::uint8_t mask) { serviceEnable_ = mask & 0xBFU; }

  /// The status byte as `*STB?` reports it, with the master summary in bit 6.
  std::uint8_t StatusByte(bool messageAvailable) const;

  /// `*CLS`: events and errors, not masks.
  void Clear();
  /// `STATus:PRESet`: the masks of the two SCPI registers.
  void Preset();

  ErrorQueue& Errors() { return errors_; }
  StatusRegister& Operation() { return operation_; }
  StatusRegister& Questionable() { return questionable_; }

private:
  ErrorQueue errors_;
  StatusRegister operation_;
  StatusRegister questionable_;
  std::uint8_t event_ = event::kPowerOn;
  std::uint8_t eventEnable_ = 0;
  std::uint8_t serviceEnable_ = 0;
};

} // namespace portico::simulator

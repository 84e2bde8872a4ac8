#include "simulator/StatusModel.h"

#include <utility>

namespace portico::simulator {
namespace {

/// -100s are command errors, -200s execution errors, -400s query errors; -300s and positive ones are the device's.
std::uint8_t EventOf(ErrorCode code) {
  const int number = static_cast<int>(code);
  if (number <= -400) return event::kQueryError;
  if (number <= -300 || number > 0) return event::kDeviceError;
  if (number <= -200) return event::kExecutionError;
  return event::kCommandError;
}

} // namespace

void StatusRegister::Set(std::uint16_t bits) {
  const unsigned rising = bits & ~static_cast<unsigned>(condition_);
  event_ = static_cast<std::uint16_t>(event_ | rising);
  condition_ = static_cast<std::uint16_t>(condition_ | bits);
}

void StatusRegister::Clear(std::uint16_t bits) {
  condition_ = static_cast<std::uint16_t>(condition_ & ~static_cast<unsigned>(bits));
}

std::uint16_t StatusRegister::TakeEvent() { return std::exchange(event_, std::uint16_t{0}); }

void StatusModel::Raise(ErrorCode code) {
  errors_.Push(code);
  SetEvent(EventOf(code));
}

std::uint8_t StatusModel::TakeEvent() { return std::exchange(event_, std::uint8_t{0}); }

std::uint8_t StatusModel::StatusByte(bool messageAvailable) const {
  unsigned byte = 0;
  if (errors_.Size() > 0) byte |= 1U << 2U;
  if (questionable_.Summary()) byte |= 1U << 3U;
  if (messageAvailable) byte |= 1U << 4U;
  if ((event_ & eventEnable_) != 0) byte |= 1U << 5U;
  if (operation_.Summary()) byte |= 1U << 7U;
  if ((byte & serviceEnable_) != 0) byte |= 1U << 6U;
  return static_cast<std::uint8_t>(byte);
}

void StatusModel::Clear() {
  errors_.Clear();
  event_ = 0;
  operation_.TakeEvent();
  questionable_.TakeEvent();
}

void StatusModel::Preset() {
  operation_.SetEnable(0);
  questionable_.SetEnable(0);
}

} // namespace portico::simulator

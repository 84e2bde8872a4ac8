#include "simulator/status/StatusModel.h"

#include <utility>

namespace portico::simulator {
namespace {

/// -100s are command errors, -200s execution errors, -400s query errors; -300s and positive ones are the device's.
std::uint8_t EventOf(scpi::ErrorCode code) {
  const int number = static_cast<int>(code);
  if (number <= -400) return EventBit::QueryError;
  if (number <= -300 || number > 0) return EventBit::DeviceError;
  if (number <= -200) return EventBit::ExecutionError;
  return EventBit::CommandError;
}

} // namespace

void StatusRegister::Set(std::uint16_t bits) {
  const unsigned rising = bits & ~static_cast<unsigned>(m_condition);
  m_event = static_cast<std::uint16_t>(m_event | rising);
  m_condition = static_cast<std::uint16_t>(m_condition | bits);
}

void StatusRegister::Clear(std::uint16_t bits) {
  m_condition = static_cast<std::uint16_t>(m_condition & ~static_cast<unsigned>(bits));
}

std::uint16_t StatusRegister::TakeEvent() { return std::exchange(m_event, std::uint16_t{0}); }

void StatusModel::Raise(scpi::ErrorCode code) {
  m_errors.Push(code);
  SetEvent(EventOf(code));
}

std::uint8_t StatusModel::TakeEvent() { return std::exchange(m_event, std::uint8_t{0}); }

std::uint8_t StatusModel::StatusByte(bool messageAvailable) const {
  unsigned byte = 0;
  if (m_errors.Size() > 0) byte |= 1U << 2U;
  if (m_questionable.Summary()) byte |= 1U << 3U;
  if (messageAvailable) byte |= StatusBit::MessageAvailable;
  if ((m_event & m_eventEnable) != 0) byte |= 1U << 5U;
  if (m_operation.Summary()) byte |= 1U << 7U;
  if ((byte & m_serviceEnable) != 0) byte |= StatusBit::Service;
  return static_cast<std::uint8_t>(byte);
}

void StatusModel::Clear() {
  m_errors.Clear();
  m_event = 0;
  m_operation.TakeEvent();
  m_questionable.TakeEvent();
}

void StatusModel::Preset() {
  m_operation.SetEnable(0);
  m_questionable.SetEnable(0);
}

} // namespace portico::simulator

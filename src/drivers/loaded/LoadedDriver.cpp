#include "drivers/loaded/LoadedDriver.h"

#include "drivers/DriverStatus.h"

#include <algorithm>

namespace portico::drivers {

LoadedDriver::LoadedDriver(const DriverFunctions& library, IDriverObserver* observer,
                           const system::Cancellation* cancellation)
    : m_library(library), m_observer(observer), m_cancellation(cancellation) {}

std::int32_t LoadedDriver::TVSCPI_init(const std::string& name, std::int32_t idQuery, std::int32_t reset,
                                       std::int32_t& session) {
  return Wait([&] {
    const std::int32_t status = m_library.Init(name.c_str(), idQuery, reset, &session);
    if (status >= 0) m_names[session] = name;
    return status;
  });
}

std::int32_t LoadedDriver::TVSCPI_close(std::int32_t session) {
  m_names.erase(session);
  return m_library.Close(session);
}

std::int32_t LoadedDriver::TVSCPI_WriteInstrData(std::int32_t session, const std::string& text) {
  return Wait([&] { return m_library.WriteInstrData(session, text.c_str()); });
}

std::int32_t LoadedDriver::TVSCPI_ReadInstrData(std::int32_t session, std::int32_t size, char* buffer,
                                                std::int32_t& count) {
  count = 0;
  return Wait([&] {
    m_buffer.assign(static_cast<std::size_t>(std::max(size, 1)), '\0');
    const std::int32_t status = m_library.ReadInstrData(session, size, m_buffer.data(), &count);
    std::copy_n(m_buffer.data(), std::clamp(count, 0, std::max(size, 0)), buffer);
    // The one byte is no data. How much of the answer did not fit, no library tells.
    if (status == 0 && count >= size && m_observer != nullptr) {
      m_observer->AnswerFilledBuffer(m_names[session], static_cast<std::size_t>(std::max(count - 1, 0)));
    }
    return status;
  });
}

std::int32_t LoadedDriver::TVSCPI_GetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                      std::int32_t& value) {
  return IfNotCancelled([&] { return m_library.GetAttributeViInt32(session, zero, attribute, &value); });
}

std::int32_t LoadedDriver::TVSCPI_GetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                       std::int32_t size, char* buffer) {
  return IfNotCancelled([&] { return m_library.GetAttributeViString(session, zero, attribute, size, buffer); });
}

std::int32_t LoadedDriver::TVSCPI_SetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                      std::int32_t value) {
  return IfNotCancelled([&] { return m_library.SetAttributeViInt32(session, zero, attribute, value); });
}

std::int32_t LoadedDriver::TVSCPI_SetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                       const std::string& text) {
  return IfNotCancelled([&] { return m_library.SetAttributeViString(session, zero, attribute, text.c_str()); });
}

std::int32_t LoadedDriver::TVSCPI_error_message(std::int32_t session, std::int32_t status, char* buffer) {
  if (status != Number(DriverStatus::Cancelled) || !Cancelled()) return m_library.ErrorMessage(session, status, buffer);
  WriteErrorMessage(StatusMessage(status), buffer);
  return 0;
}

template <typename Call>
std::int32_t LoadedDriver::IfNotCancelled(Call call) const {
  return Cancelled() ? Number(DriverStatus::Cancelled) : call();
}

template <typename Call>
std::int32_t LoadedDriver::Wait(Call call) const {
  if (!Cancelled() && m_observer != nullptr) m_observer->Waits();
  return IfNotCancelled(call);
}

} // namespace portico::drivers

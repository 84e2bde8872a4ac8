#include "drivers/exported/SharedDriver.h"

#include "drivers/DriverStatus.h"
#include "drivers/ResourceName.h"
#include "drivers/standard/StandardDriver.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace portico::drivers {
namespace {

/// The last open of this thread that failed.
struct OpenFailure {
  std::int32_t Status = 0;
  /// As the driver wrote it.
  std::array<char, ErrorMessageBufferSize> Message = {};
};
thread_local OpenFailure lastOpenFailure;

/// The time-out that the user asks for, else the driver's own.
SessionOptions Options(IClock& clock) {
  SessionOptions options = {clock};
  const char* const text = std::getenv("PORTICO_DRIVER_TIMEOUT");
  const std::string_view digits = text == nullptr ? "" : text;
  std::int32_t milliseconds = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), milliseconds);
  if (error == std::errc() && end == digits.data() + digits.size() && milliseconds > 0) {
    options.Timeout = std::chrono::milliseconds(milliseconds);
  }
  return options;
}

/// Runs what answers a status; what it raises becomes one.
template <typename Body>
std::int32_t Guarded(Body body) noexcept {
  try {
    return body();
  } catch (...) {
    return Number(DriverStatus::InternalError);
  }
}

} // namespace

std::int32_t SharedDriver::Init(const char* name, std::int32_t* session) noexcept {
  if (session == nullptr) return Number(DriverStatus::InvalidBuffer);
  return Guarded([&] {
    const std::string text = name == nullptr ? "" : name;
    auto opened = std::make_shared<Session>(Session{WorkerFor(text), 0});
    Worker& worker = *opened->Owner;
    const std::lock_guard turn(worker.Turn);
    const std::int32_t status = worker.Driver->TVSCPI_init(text, 0, 0, opened->Handle);
    if (status != 0) {
      worker.Driver->TVSCPI_error_message(0, status, lastOpenFailure.Message.data());
      lastOpenFailure.Status = status;
      return status;
    }
    const std::lock_guard own(m_turn);
    m_sessions.emplace(m_nextSession, std::move(opened));
    *session = m_nextSession++;
    return status;
  });
}

std::int32_t SharedDriver::Close(std::int32_t session) noexcept {
  return Guarded([&] {
    SessionRef closed;
    {
      const std::lock_guard own(m_turn);
      const auto found = m_sessions.find(session);
      if (found == m_sessions.end()) return Number(DriverStatus::InvalidSession);
      closed = std::move(found->second);
      m_sessions.erase(found);
    }
    const std::lock_guard turn(closed->Owner->Turn);
    return closed->Owner->Driver->TVSCPI_close(std::exchange(closed->Handle, 0));
  });
}

std::int32_t SharedDriver::WriteInstrData(std::int32_t session, const char* text) noexcept {
  if (text == nullptr) return Number(DriverStatus::InvalidBuffer);
  return OnSession(session, [&](IInstrumentDriver& driver, std::int32_t handle) {
    return driver.TVSCPI_WriteInstrData(handle, text);
  });
}

std::int32_t SharedDriver::ReadInstrData(std::int32_t session, std::int32_t size, char* buffer,
                                         std::int32_t* count) noexcept {
  if (count == nullptr) return Number(DriverStatus::InvalidBuffer);
  *count = 0;
  if (buffer == nullptr) return Number(DriverStatus::InvalidBuffer);
  return OnSession(session, [&](IInstrumentDriver& driver, std::int32_t handle) {
    return driver.TVSCPI_ReadInstrData(handle, size, buffer, *count);
  });
}

std::int32_t SharedDriver::GetAttribute(std::int32_t session, std::int32_t attribute, std::int32_t* value) noexcept {
  if (value == nullptr) return Number(DriverStatus::InvalidBuffer);
  return OnSession(session, [&](IInstrumentDriver& driver, std::int32_t handle) {
    return driver.TVSCPI_GetAttributeViInt32(handle, 0, attribute, *value);
  });
}

std::int32_t SharedDriver::GetAttribute(std::int32_t session, std::int32_t attribute, std::int32_t size,
                                        char* buffer) noexcept {
  if (buffer == nullptr) return Number(DriverStatus::InvalidBuffer);
  return OnSession(session, [&](IInstrumentDriver& driver, std::int32_t handle) {
    return driver.TVSCPI_GetAttributeViString(handle, 0, attribute, size, buffer);
  });
}

std::int32_t SharedDriver::SetAttribute(std::int32_t session, std::int32_t attribute, std::int32_t value) noexcept {
  return OnSession(session, [&](IInstrumentDriver& driver, std::int32_t handle) {
    return driver.TVSCPI_SetAttributeViInt32(handle, 0, attribute, value);
  });
}

std::int32_t SharedDriver::SetAttribute(std::int32_t session, std::int32_t attribute, const char* text) noexcept {
  if (text == nullptr) return Number(DriverStatus::InvalidBuffer);
  return OnSession(session, [&](IInstrumentDriver& driver, std::int32_t handle) {
    return driver.TVSCPI_SetAttributeViString(handle, 0, attribute, text);
  });
}

std::int32_t SharedDriver::ErrorMessage(std::int32_t session, std::int32_t status, char* buffer) noexcept {
  if (buffer == nullptr) return Number(DriverStatus::InvalidBuffer);
  if (session == 0 && status != 0 && status == lastOpenFailure.Status) {
    const std::string_view message = lastOpenFailure.Message.data();
    std::copy_n(message.data(), message.size() + 1, buffer); // what stands behind a message is the caller's
    return 0;
  }
  const std::int32_t told = OnSession(session, [&](IInstrumentDriver& driver, std::int32_t handle) {
    return driver.TVSCPI_error_message(handle, status, buffer);
  });
  if (told != Number(DriverStatus::InvalidSession)) return told;
  return Guarded([&] {
    WriteErrorMessage(StatusMessage(status), buffer);
    return 0;
  });
}

std::shared_ptr<SharedDriver::Worker> SharedDriver::MakeWorker() {
  auto worker = std::make_shared<Worker>();
  worker->Driver = StandardDriver(Options(m_clock));
  return worker;
}

std::shared_ptr<SharedDriver::Worker> SharedDriver::WorkerFor(const std::string& name) {
  if (!ResourceName::IsSimulated(name)) return MakeWorker();
  const std::lock_guard own(m_turn);
  // They share their devices, whose settings outlive a session.
  if (m_simulated == nullptr) m_simulated = MakeWorker();
  return m_simulated;
}

SharedDriver::SessionRef SharedDriver::Find(std::int32_t session) {
  const std::lock_guard own(m_turn);
  const auto found = m_sessions.find(session);
  return found == m_sessions.end() ? nullptr : found->second;
}

template <typename Operation>
std::int32_t SharedDriver::OnSession(std::int32_t session, Operation operation) noexcept {
  return Guarded([&] {
    const SessionRef open = Find(session);
    if (open == nullptr) return Number(DriverStatus::InvalidSession);
    const std::lock_guard turn(open->Owner->Turn);
    // Another thread may have closed it meanwhile; then the driver refuses the handle.
    return operation(*open->Owner->Driver, open->Handle);
  });
}

} // namespace portico::drivers

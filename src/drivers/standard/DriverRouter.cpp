#include "drivers/standard/DriverRouter.h"

#include "drivers/ResourceName.h"

#include <utility>

namespace portico::drivers {

DriverRouter::DriverRouter(OwnDriver own, OtherDriver other) : m_own(std::move(own)), m_other(std::move(other)) {}

DriverRouter::DriverRouter(OwnDriver own, DriverResult refusal)
    : m_own(std::move(own)), m_refusal(std::move(refusal)) {}

DriverRouter::~DriverRouter() {
  for (const auto& [handle, session] : m_sessions) session.Owner.TVSCPI_close(session.Handle);
}

std::int32_t DriverRouter::TVSCPI_init(const std::string& name, std::int32_t idQuery, std::int32_t reset,
                                       std::int32_t& session) {
  m_isExtensionRefused = false;
  IInstrumentDriver* const driver = ResourceName::IsSimulated(name) ? m_own.get() : m_other.get();
  if (driver == nullptr) return Refuse();
  std::int32_t handle = 0;
  const std::int32_t status = driver->TVSCPI_init(name, idQuery, reset, handle);
  if (status != 0) m_failure = {driver, status};
  // A library may open with a warning, which is a status, too.
  if (handle != 0) {
    session = m_nextSession++;
    m_sessions.emplace(session, Session{*driver, handle});
  }
  return status;
}

std::int32_t DriverRouter::Refuse() {
  m_failure = {nullptr, Number(m_refusal.Status)};
  return m_failure.Status;
}

std::int32_t DriverRouter::TVSCPI_close(std::int32_t session) {
  m_isExtensionRefused = false;
  const auto found = m_sessions.find(session);
  if (found == m_sessions.end()) return Number(DriverStatus::InvalidSession);
  const Session closed = found->second;
  m_sessions.erase(found);
  const std::int32_t status = closed.Owner.TVSCPI_close(closed.Handle);
  if (status != 0) m_failure = {&closed.Owner, status};
  return status;
}

std::int32_t DriverRouter::TVSCPI_WriteInstrData(std::int32_t session, const std::string& text) {
  return OnSession(session, [&](const Session& open) { return open.Owner.TVSCPI_WriteInstrData(open.Handle, text); });
}

std::int32_t DriverRouter::TVSCPI_ReadInstrData(std::int32_t session, std::int32_t size, char* buffer,
                                                std::int32_t& count) {
  count = 0;
  return OnSession(
      session, [&](const Session& open) { return open.Owner.TVSCPI_ReadInstrData(open.Handle, size, buffer, count); });
}

std::int32_t DriverRouter::TVSCPI_GetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                      std::int32_t& value) {
  return OnSession(session, [&](const Session& open) {
    return open.Owner.TVSCPI_GetAttributeViInt32(open.Handle, zero, attribute, value);
  });
}

std::int32_t DriverRouter::TVSCPI_GetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                       std::int32_t size, char* buffer) {
  return OnSession(session, [&](const Session& open) {
    return open.Owner.TVSCPI_GetAttributeViString(open.Handle, zero, attribute, size, buffer);
  });
}

std::int32_t DriverRouter::TVSCPI_SetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                      std::int32_t value) {
  return OnSession(session, [&](const Session& open) {
    return open.Owner.TVSCPI_SetAttributeViInt32(open.Handle, zero, attribute, value);
  });
}

std::int32_t DriverRouter::TVSCPI_SetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                       const std::string& text) {
  return OnSession(session, [&](const Session& open) {
    return open.Owner.TVSCPI_SetAttributeViString(open.Handle, zero, attribute, text);
  });
}

std::int32_t DriverRouter::TVSCPI_error_message(std::int32_t session, std::int32_t status, char* buffer) {
  if (m_isExtensionRefused && status == Number(DriverStatus::NotPossible)) {
    WriteErrorMessage(StatusMessage(status, "the driver library has no function for it"), buffer);
    return Number(DriverStatus::Success);
  }
  if (const auto open = m_sessions.find(session); open != m_sessions.end()) {
    return open->second.Owner.TVSCPI_error_message(open->second.Handle, status, buffer);
  }
  const bool ofFailure = session == 0 && status == m_failure.Status;
  if (ofFailure && m_failure.Teller != nullptr) return m_failure.Teller->TVSCPI_error_message(0, status, buffer);
  WriteErrorMessage(StatusMessage(status, ofFailure ? m_refusal.Detail : std::string()), buffer);
  return Number(DriverStatus::Success);
}

std::int32_t DriverRouter::SetTimeout(std::chrono::milliseconds timeout) {
  m_isExtensionRefused = false;
  const std::int32_t status = m_own->SetTimeout(timeout);
  return m_other == nullptr ? status : RefuseExtension();
}

std::int32_t DriverRouter::Clear(std::int32_t session) {
  return OnOwnSession(session, [this](std::int32_t handle) { return m_own->Clear(handle); });
}

std::int32_t DriverRouter::GoToLocal(std::int32_t session) {
  return OnOwnSession(session, [this](std::int32_t handle) { return m_own->GoToLocal(handle); });
}

std::int32_t DriverRouter::CanReadInPieces(std::int32_t session) {
  return OnOwnSession(session, [this](std::int32_t handle) { return m_own->CanReadInPieces(handle); });
}

std::int32_t DriverRouter::ReadInPieces(std::int32_t session, const AnswerSink& sink) {
  return OnOwnSession(session, [this, &sink](std::int32_t handle) { return m_own->ReadInPieces(handle, sink); });
}

std::int32_t DriverRouter::RefuseExtension() {
  m_isExtensionRefused = true;
  return Number(DriverStatus::NotPossible);
}

template <typename Call>
std::int32_t DriverRouter::OnOwnSession(std::int32_t session, Call call) {
  return OnSession(
      session, [&](const Session& open) { return &open.Owner == m_own.get() ? call(open.Handle) : RefuseExtension(); });
}

template <typename Call>
std::int32_t DriverRouter::OnSession(std::int32_t session, Call call) {
  m_isExtensionRefused = false;
  const auto open = m_sessions.find(session);
  return open == m_sessions.end() ? Number(DriverStatus::InvalidSession) : call(open->second);
}

} // namespace portico::drivers

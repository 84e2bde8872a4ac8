#include "drivers/session/InstrumentDriver.h"

#include <algorithm>
#include <variant>

namespace portico::drivers {

InstrumentDriver::InstrumentDriver(TransportRegistry transports, const SessionOptions& options)
    : m_transports(std::move(transports)), m_options(options) {}

std::int32_t InstrumentDriver::TVSCPI_init(const std::string& name, std::int32_t /*idQuery*/, std::int32_t /*reset*/,
                                           std::int32_t& session) {
  DriverResult result = Open(name, session);
  const std::int32_t status = Number(result.Status);
  if (!result.Succeeded()) m_lastOpenFailure = std::move(result);
  return status;
}

DriverResult InstrumentDriver::Open(const std::string& name, std::int32_t& session) {
  if (IsCancelled()) return {DriverStatus::Cancelled};
  const auto parsed = ResourceName::Parse(name);
  if (const auto* error = std::get_if<ResourceNameError>(&parsed)) {
    return {DriverStatus::InvalidResourceName, error->Text};
  }
  const auto& resource = std::get<ResourceName>(parsed);
  const auto transport = m_transports.find(resource.Kind());
  if (transport == m_transports.end()) return {DriverStatus::UnsupportedInterface, resource.Canonical()};
  const auto opened = std::make_shared<InstrumentSession>(resource, transport->second(resource), m_options);
  DriverResult result = opened->Open();
  if (result.Succeeded()) {
    session = m_nextSession++;
    m_sessions.emplace(session, opened);
  }
  return result;
}

std::int32_t InstrumentDriver::TVSCPI_close(std::int32_t session) {
  const auto found = m_sessions.find(session);
  if (found == m_sessions.end()) return Number(DriverStatus::InvalidSession);
  found->second->Close();
  m_sessions.erase(found);
  return Number(DriverStatus::Success);
}

std::int32_t InstrumentDriver::TVSCPI_WriteInstrData(std::int32_t session, const std::string& text) {
  return OnSession(session, [&](InstrumentSession& open) { return open.Write(text); });
}

std::int32_t InstrumentDriver::TVSCPI_ReadInstrData(std::int32_t session, std::int32_t size, char* buffer,
                                                    std::int32_t& count) {
  count = 0;
  const auto capacity = static_cast<std::size_t>(std::max(size, 0));
  return OnSession(session, [&](InstrumentSession& open) { return open.Read({buffer, capacity}, count); });
}

std::int32_t InstrumentDriver::TVSCPI_GetAttributeViInt32(std::int32_t session, std::int32_t /*zero*/,
                                                          std::int32_t attribute, std::int32_t& value) {
  return OnSession(session, [&](InstrumentSession& open) { return open.Attributes().Get(attribute, value); });
}

std::int32_t InstrumentDriver::TVSCPI_GetAttributeViString(std::int32_t session, std::int32_t /*zero*/,
                                                           std::int32_t attribute, std::int32_t size, char* buffer) {
  return OnSession(session, [&](InstrumentSession& open) -> DriverResult {
    if (size < 1) return {DriverStatus::InvalidBuffer};
    std::string text;
    DriverResult result = open.Attributes().Get(attribute, text);
    if (!result.Succeeded()) return result;
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(size) - 1);
    *std::copy_n(text.data(), length, buffer) = '\0';
    return result;
  });
}

std::int32_t InstrumentDriver::TVSCPI_SetAttributeViInt32(std::int32_t session, std::int32_t /*zero*/,
                                                          std::int32_t attribute, std::int32_t value) {
  return OnSession(session, [&](InstrumentSession& open) { return open.Attributes().Set(attribute, value); });
}

std::int32_t InstrumentDriver::TVSCPI_SetAttributeViString(std::int32_t session, std::int32_t /*zero*/,
                                                           std::int32_t attribute, const std::string& text) {
  return OnSession(session, [&](InstrumentSession& open) { return open.Attributes().Set(attribute, text); });
}

std::int32_t InstrumentDriver::TVSCPI_error_message(std::int32_t session, std::int32_t status, char* buffer) {
  const SessionRef open = Find(session);
  DriverResult failure;
  if (open != nullptr) {
    failure = open->LastFailure();
  } else if (session == 0) {
    failure = m_lastOpenFailure;
  }
  // The particulars belong to the last failure only; another status is explained by its own text.
  if (Number(failure.Status) != status) failure.Detail.clear();
  WriteErrorMessage(StatusMessage(status, failure.Detail), buffer);
  return Number(DriverStatus::Success);
}

std::int32_t InstrumentDriver::SetTimeout(std::chrono::milliseconds timeout) {
  m_options.Timeout = timeout;
  for (const auto& [handle, session] : m_sessions) session->SetTimeout(timeout);
  return Number(DriverStatus::Success);
}

std::int32_t InstrumentDriver::Clear(std::int32_t session) {
  return OnSession(session, [](InstrumentSession& open) { return open.Clear(); });
}

std::int32_t InstrumentDriver::GoToLocal(std::int32_t session) {
  return OnSession(session, [](InstrumentSession& open) { return open.GoToLocal(); });
}

std::int32_t InstrumentDriver::CanReadInPieces(std::int32_t session) {
  return OnSession(session, [](InstrumentSession&) { return DriverResult(); });
}

std::int32_t InstrumentDriver::ReadInPieces(std::int32_t session, const AnswerSink& sink) {
  return OnSession(session, [&sink](InstrumentSession& open) { return open.ReadInPieces(sink); });
}

InstrumentDriver::SessionRef InstrumentDriver::Find(std::int32_t session) const {
  const auto found = m_sessions.find(session);
  return found == m_sessions.end() ? nullptr : found->second;
}

template <typename Operation>
std::int32_t InstrumentDriver::OnSession(std::int32_t session, Operation operation) {
  const SessionRef open = Find(session);
  if (open == nullptr) return Number(DriverStatus::InvalidSession);
  const DriverResult result = IsCancelled() ? DriverResult{DriverStatus::Cancelled} : operation(*open);
  if (!result.Succeeded()) open->RememberFailure(result);
  return Number(result.Status);
}

} // namespace portico::drivers

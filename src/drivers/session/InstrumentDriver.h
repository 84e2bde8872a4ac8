#pragma once

#include "drivers/ITransport.h"
#include "drivers/ResourceName.h"
#include "drivers/session/InstrumentSession.h"
#include "platform/IExtendedDriver.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace portico::drivers {

/// Which transport serves which kind of interface; a kind that is missing is not supported.
using TransportRegistry = std::map<InterfaceKind, TransportFactory>;

/// The driver of all instruments: reads the resource name, picks the transport for its kind and holds the sessions.
///
/// Used from one thread, like the channel above it. Sessions that were not closed are closed with the driver. Statuses
/// are those of DriverStatus. Once the order to give up was given, all but closing and messages is refused.
class InstrumentDriver final : public IExtendedDriver {
public:
  InstrumentDriver(TransportRegistry transports, const SessionOptions& options);

  std::int32_t TVSCPI_init(const std::string& name, std::int32_t idQuery, std::int32_t reset,
                           std::int32_t& session) override;
  std::int32_t TVSCPI_close(std::int32_t session) override;
  std::int32_t TVSCPI_WriteInstrData(std::int32_t session, const std::string& text) override;
  std::int32_t TVSCPI_ReadInstrData(std::int32_t session, std::int32_t size, char* buffer,
                                    std::int32_t& count) override;
  std::int32_t TVSCPI_GetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                          std::int32_t& value) override;
  std::int32_t TVSCPI_GetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                           std::int32_t size, char* buffer) override;
  std::int32_t TVSCPI_SetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                          std::int32_t value) override;
  std::int32_t TVSCPI_SetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                           const std::string& text) override;
  std::int32_t TVSCPI_error_message(std::int32_t session, std::int32_t status, char* buffer) override;

  std::int32_t SetTimeout(std::chrono::milliseconds timeout) override;
  std::int32_t Clear(std::int32_t session) override;
  std::int32_t GoToLocal(std::int32_t session) override;
  std::int32_t CanReadInPieces(std::int32_t session) override;
  std::int32_t ReadInPieces(std::int32_t session, const AnswerSink& sink) override;

private:
  using SessionRef = std::shared_ptr<InstrumentSession>;

  DriverResult Open(const std::string& name, std::int32_t& session);
  SessionRef Find(std::int32_t session) const;
  bool IsCancelled() const { return system::Requested(m_options.Cancellation); }

  /// Runs `operation` on the session, remembers its failure there and answers its status.
  template <typename Operation>
  std::int32_t OnSession(std::int32_t session, Operation operation);

  const TransportRegistry m_transports;
  SessionOptions m_options;

  std::map<std::int32_t, SessionRef> m_sessions;
  std::int32_t m_nextSession = 1;
  DriverResult m_lastOpenFailure;
};

} // namespace portico::drivers

#pragma once

#include "drivers/DriverStatus.h"
#include "platform/IExtendedDriver.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace portico::drivers {

/// Two drivers as one: names that begin with `SIM::` go to the program's own, all others to the other one. Each later
/// call goes to the driver whose session it is. Sessions have handles of the router's own, and those that were not
/// closed are closed with it. The other one can do nothing beyond the nine functions.
class DriverRouter final : public IExtendedDriver {
public:
  using OwnDriver = std::shared_ptr<IExtendedDriver>;
  using OtherDriver = std::shared_ptr<IInstrumentDriver>;

  DriverRouter(OwnDriver own, OtherDriver other);
  /// There is no other one: its names are refused for this reason.
  DriverRouter(OwnDriver own, DriverResult refusal);
  ~DriverRouter() override;
  DriverRouter(const DriverRouter&) = delete;
  DriverRouter& operator=(const DriverRouter&) = delete;

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

  /// Reaches its own driver at any rate; is refused if there is another.
  std::int32_t SetTimeout(std::chrono::milliseconds timeout) override;
  std::int32_t Clear(std::int32_t session) override;
  std::int32_t GoToLocal(std::int32_t session) override;
  std::int32_t CanReadInPieces(std::int32_t session) override;
  std::int32_t ReadInPieces(std::int32_t session, const AnswerSink& sink) override;

private:
  struct Session {
    IInstrumentDriver& Owner;
    /// As that driver knows it.
    std::int32_t Handle;
  };
  /// Of an open or a close, behind which there is no session to ask about it.
  struct Failure {
    IInstrumentDriver* Teller = nullptr;
    std::int32_t Status = 0;
  };

  std::int32_t Refuse();
  /// Refuses what the other driver has no function for.
  std::int32_t RefuseExtension();
  template <typename Call>
  std::int32_t OnSession(std::int32_t session, Call call);
  template <typename Call>
  std::int32_t OnOwnSession(std::int32_t session, Call call);

  const OwnDriver m_own;
  const OtherDriver m_other;
  const DriverResult m_refusal;
  std::map<std::int32_t, Session> m_sessions;
  std::int32_t m_nextSession = 1;
  Failure m_failure;
  /// The last call was refused so.
  bool m_isExtensionRefused = false;
};

} // namespace portico::drivers

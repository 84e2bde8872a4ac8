#pragma once

#include "drivers/loaded/DriverLibrary.h"
#include "platform/IDriverObserver.h"
#include "platform/IInstrumentDriver.h"
#include "system/Cancellation.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace portico::drivers {

/// A driver library behind the seam. Framing, attributes, time-outs, statuses and messages are the library's own.
///
/// A read goes into a buffer that is wiped before, and hands the counted bytes on alone, so that nothing which a
/// library leaves behind its count is ever taken for an answer. A call ends when the library ends it; once
/// `cancellation` is requested all but close are refused with DriverStatus::Cancelled.
class LoadedDriver final : public IInstrumentDriver {
public:
  /// `observer` and `cancellation` may be null, or must outlive the driver.
  LoadedDriver(const DriverFunctions& library, IDriverObserver* observer, const system::Cancellation* cancellation);

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

private:
  bool Cancelled() const { return system::Requested(m_cancellation); }

  /// Makes a call of the library unless all waits are given up.
  template <typename Call>
  std::int32_t IfNotCancelled(Call call) const;
  /// The same with one that the instrument may keep waiting.
  template <typename Call>
  std::int32_t Wait(Call call) const;

  const DriverFunctions m_library;
  IDriverObserver* const m_observer;
  const system::Cancellation* const m_cancellation;
  /// Of the sessions that are open.
  std::map<std::int32_t, std::string> m_names;
  std::vector<char> m_buffer;
};

} // namespace portico::drivers

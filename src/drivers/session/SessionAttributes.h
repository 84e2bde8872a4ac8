#pragma once

#include "drivers/DriverStatus.h"
#include "platform/Termination.h"

#include <cstdint>
#include <string>

namespace portico::drivers {

/// What can be set on a session. It outlives the connection, so nothing is lost by connecting anew.
class SessionAttributes {
public:
  DriverResult Get(std::int32_t attribute, std::int32_t& value) const;
  DriverResult Get(std::int32_t attribute, std::string& text) const;
  DriverResult Set(std::int32_t attribute, std::int32_t value);
  DriverResult Set(std::int32_t attribute, const std::string& text);

  portico::Termination Termination() const { return m_termination; }

private:
  portico::Termination m_termination = portico::Termination::Auto;
  std::string m_errorQuery = "SYST:ERR?";
};

} // namespace portico::drivers

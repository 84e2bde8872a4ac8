#include "drivers/session/SessionAttributes.h"

#include "platform/IInstrumentDriver.h"

namespace portico::drivers {
namespace {

DriverResult Unknown(std::int32_t attribute) { return {DriverStatus::UnknownAttribute, std::to_string(attribute)}; }

} // namespace

DriverResult SessionAttributes::Get(std::int32_t attribute, std::int32_t& value) const {
  if (attribute != TVSCPI_ATTR_TERMCHAR) return Unknown(attribute);
  value = static_cast<std::int32_t>(m_termination);
  return {};
}

DriverResult SessionAttributes::Get(std::int32_t attribute, std::string& text) const {
  if (attribute != TVSCPI_ATTR_ERRORQUERYSCPI) return Unknown(attribute);
  text = m_errorQuery;
  return {};
}

DriverResult SessionAttributes::Set(std::int32_t attribute, std::int32_t value) {
  if (attribute != TVSCPI_ATTR_TERMCHAR) return Unknown(attribute);
  const auto termination = ToTermination(value);
  if (!termination) {
    return {DriverStatus::InvalidAttributeValue,
            "TERMCHAR " + std::to_string(value) + ", which is none of 0, 10, 11, 13 and 14"};
  }
  m_termination = *termination;
  return {};
}

DriverResult SessionAttributes::Set(std::int32_t attribute, const std::string& text) {
  if (attribute != TVSCPI_ATTR_ERRORQUERYSCPI) return Unknown(attribute);
  m_errorQuery = text;
  return {};
}

} // namespace portico::drivers

#include "timing/TimedDriver.h"

#include <utility>

namespace portico::timing {

std::shared_ptr<TimedDriver> gTimedDriver;

TimedDriver::TimedDriver(std::shared_ptr<IExtendedDriver> driver, Clock now)
    : m_driver(std::move(driver)), m_now(std::move(now)) {}

std::int32_t TimedDriver::TVSCPI_WriteInstrData(std::int32_t session, const std::string& text) {
  const auto start = m_now();
  const std::int32_t status = m_driver->TVSCPI_WriteInstrData(session, text);
  Await(status == 0 ? session : 0, text, start);
  return status;
}

void TimedDriver::Await(std::int32_t session, std::string_view text, std::chrono::steady_clock::time_point start) {
  m_session = session;
  if (text.ends_with('\r')) text.remove_suffix(1);
  m_query.assign(text.substr(0, QueryTimes::LongestQuery + 1)); // one more tells that it is too long for a row
  m_start = start;
}

std::int32_t TimedDriver::TVSCPI_ReadInstrData(std::int32_t session, std::int32_t size, char* buffer,
                                               std::int32_t& count) {
  const std::int32_t status = m_driver->TVSCPI_ReadInstrData(session, size, buffer, count);
  const std::int32_t awaited = std::exchange(m_session, 0);
  if (status == 0 && awaited == session && session != 0) m_times.Add(m_query, m_now() - m_start);
  return status;
}

std::int32_t TimedDriver::TVSCPI_init(const std::string& name, std::int32_t idQuery, std::int32_t reset,
                                      std::int32_t& session) {
  return m_driver->TVSCPI_init(name, idQuery, reset, session);
}

std::int32_t TimedDriver::TVSCPI_close(std::int32_t session) {
  m_session = 0;
  return m_driver->TVSCPI_close(session);
}

std::int32_t TimedDriver::Clear(std::int32_t session) {
  m_session = 0; // what was asked is not answered any more
  return m_driver->Clear(session);
}

std::int32_t TimedDriver::ReadInPieces(std::int32_t session, const AnswerSink& sink) {
  m_session = 0;
  return m_driver->ReadInPieces(session, sink);
}

std::int32_t TimedDriver::TVSCPI_GetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                     std::int32_t& value) {
  return m_driver->TVSCPI_GetAttributeViInt32(session, zero, attribute, value);
}

std::int32_t TimedDriver::TVSCPI_GetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                      std::int32_t size, char* buffer) {
  return m_driver->TVSCPI_GetAttributeViString(session, zero, attribute, size, buffer);
}

std::int32_t TimedDriver::TVSCPI_SetAttributeViInt32(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                     std::int32_t value) {
  return m_driver->TVSCPI_SetAttributeViInt32(session, zero, attribute, value);
}

std::int32_t TimedDriver::TVSCPI_SetAttributeViString(std::int32_t session, std::int32_t zero, std::int32_t attribute,
                                                      const std::string& text) {
  return m_driver->TVSCPI_SetAttributeViString(session, zero, attribute, text);
}

std::int32_t TimedDriver::TVSCPI_error_message(std::int32_t session, std::int32_t status, char* buffer) {
  return m_driver->TVSCPI_error_message(session, status, buffer);
}

} // namespace portico::timing

#pragma once

#include "platform/IExtendedDriver.h"
#include "timing/QueryTimes.h"

#include <chrono>
#include <functional>
#include <memory>

namespace portico::timing {

/// A driver that hands every call on, and takes the time of each exchange: from a write's beginning to the end of the
/// first read behind it. One that fails, in its write or its read, is none, nor is one that is read in pieces: there
/// whoever takes the pieces takes his time, too.
class TimedDriver final : public IExtendedDriver {
public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  explicit TimedDriver(std::shared_ptr<IExtendedDriver> driver, Clock now = std::chrono::steady_clock::now);

  const QueryTimes& Times() const { return m_times; }
  void ForgetTimes() { m_times.Clear(); }

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
  std::int32_t SetTimeout(std::chrono::milliseconds timeout) override { return m_driver->SetTimeout(timeout); }
  std::int32_t Clear(std::int32_t session) override;
  std::int32_t GoToLocal(std::int32_t session) override { return m_driver->GoToLocal(session); }
  std::int32_t CanReadInPieces(std::int32_t session) override { return m_driver->CanReadInPieces(session); }
  std::int32_t ReadInPieces(std::int32_t session, const AnswerSink& sink) override;

private:
  void Await(std::int32_t session, std::string_view text, std::chrono::steady_clock::time_point start);

  std::shared_ptr<IExtendedDriver> m_driver;
  Clock m_now;
  QueryTimes m_times;

  // What was written and not yet read.
  std::int32_t m_session = 0; // 0 where nothing was
  std::string m_query;
  std::chrono::steady_clock::time_point m_start;
};

/// The one from which the window tells times; null where nobody takes them.
extern std::shared_ptr<TimedDriver> gTimedDriver;

} // namespace portico::timing

#pragma once

#include "drivers/SteadyClock.h"
#include "platform/IInstrumentDriver.h"

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace portico::drivers {

/// The standard driver for callers of whom nothing is known: they are in C, hand over null pointers, call from several
/// threads at once, and no exception may reach them. The functions are those of TVSCPI_32.h.
///
/// Calls of one session wait for each other, those of different sessions do not; simulated instruments count as one
/// session. What TVSCPI_error_message tells of session 0 is the last open of the calling thread that failed.
///
/// The time-out of all that a call does is 5000 ms, or what the environment variable `PORTICO_DRIVER_TIMEOUT` says in
/// milliseconds when the session is opened.
class SharedDriver {
public:
  std::int32_t Init(const char* name, std::int32_t* session) noexcept;
  std::int32_t Close(std::int32_t session) noexcept;
  std::int32_t WriteInstrData(std::int32_t session, const char* text) noexcept;
  std::int32_t ReadInstrData(std::int32_t session, std::int32_t size, char* buffer, std::int32_t* count) noexcept;
  std::int32_t GetAttribute(std::int32_t session, std::int32_t attribute, std::int32_t* value) noexcept;
  std::int32_t GetAttribute(std::int32_t session, std::int32_t attribute, std::int32_t size, char* buffer) noexcept;
  std::int32_t SetAttribute(std::int32_t session, std::int32_t attribute, std::int32_t value) noexcept;
  std::int32_t SetAttribute(std::int32_t session, std::int32_t attribute, const char* text) noexcept;
  std::int32_t ErrorMessage(std::int32_t session, std::int32_t status, char* buffer) noexcept;

private:
  /// A driver, and the turn to call it.
  struct Worker {
    std::mutex Turn;
    std::shared_ptr<IInstrumentDriver> Driver;
  };
  struct Session {
    std::shared_ptr<Worker> Owner;
    /// As that driver knows it; 0 once it is closed.
    std::int32_t Handle = 0;
  };
  using SessionRef = std::shared_ptr<Session>;

  std::shared_ptr<Worker> MakeWorker();
  std::shared_ptr<Worker> WorkerFor(const std::string& name);
  SessionRef Find(std::int32_t session);
  /// Calls `operation` with the session's driver and its handle there.
  template <typename Operation>
  std::int32_t OnSession(std::int32_t session, Operation operation) noexcept;

  SteadyClock m_clock;
  /// Of what follows.
  std::mutex m_turn;
  std::shared_ptr<Worker> m_simulated;
  std::map<std::int32_t, SessionRef> m_sessions;
  std::int32_t m_nextSession = 1;
};

} // namespace portico::drivers

#include "document/log/LogWatch.h"

#include <utility>

namespace portico {
namespace {

ILogWatcher* watching = nullptr;

} // namespace

LogWatch::LogWatch(ILogWatcher* watcher) : m_before(std::exchange(watching, watcher)) {}

LogWatch::~LogWatch() { watching = m_before; }

void LogWatch::TellBytes(std::uint64_t done, std::uint64_t total) {
  ILogWatcher* const watcher = watching;
  if (watcher == nullptr) return;
  const LogWatch nobody(nullptr);
  watcher->BytesRead(done, total);
}

void LogWatch::TellSession(const LogElement& session) {
  if (watching != nullptr) watching->SessionRead(session);
}

void LogWatch::TellEntity(const LogElement& entity) {
  if (watching != nullptr) watching->EntityRead(entity);
}

void LogWatch::TellMissingEnd(const LogReading& reading) {
  if (watching != nullptr) watching->EndIsMissing(reading);
}

} // namespace portico

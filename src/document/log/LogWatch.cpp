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

void LogWatch::TellEntity() {
  if (watching != nullptr) watching->EntityRead();
}

void LogWatch::TellMissingEnd(const LogReading& reading) {
  if (watching != nullptr) watching->EndIsMissing(reading);
}

} // namespace portico

#pragma once

#include <cstdlib>
#include <string>

namespace portico {

/// What an environment variable says; nothing if it is not there.
inline std::string EnvironmentText(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

} // namespace portico

#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace portico::test {

/// Sets an environment variable, or with null takes it away, until the end of the block.
class EnvironmentVariable {
public:
  EnvironmentVariable(const char* name, const char* value) : m_name(name) {
    if (const char* const before = std::getenv(name)) m_before = before;
    Set(value);
  }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
  ~EnvironmentVariable() { Set(m_before ? m_before->c_str() : nullptr); }

private:
  void Set(const char* value) {
    if (value == nullptr) {
      unsetenv(m_name.c_str());
    } else {
      setenv(m_name.c_str(), value, 1);
    }
  }

  std::string m_name;
  std::optional<std::string> m_before;
};

} // namespace portico::test

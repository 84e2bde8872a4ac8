#pragma once

#include "platform/IRegistry.h"

namespace portico::drivers {

/// Where the built-in driver says which version it is: one key of the machine with the one value "Version".
class DriverRegistry final : public IRegistry {
public:
  explicit DriverRegistry(std::string version) : m_version(std::move(version)) {}

  std::int32_t RegOpenKeyExA(std::int32_t Root, const String& Name, std::int32_t Access, std::int32_t& Key) override;
  std::int32_t RegQueryValueExA(std::int32_t Key, const String& Name, std::int32_t& Type, std::string& Value,
                                std::int32_t& Size) override;
  std::int32_t RegCloseKey(std::int32_t Key) override;

private:
  std::string m_version;
};

} // namespace portico::drivers

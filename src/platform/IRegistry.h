#pragma once

#include "framework/text/text.h"

#include <cstdint>
#include <memory>

namespace portico {

inline constexpr std::int32_t HKEY_LOCAL_MACHINE = static_cast<std::int32_t>(0x80000002);
inline constexpr std::int32_t RegistryText = 1;
inline constexpr std::int32_t RegistryNumber = 4;

/// What the machine knows about what is installed on it: values by key and name. Every function answers 0 for success.
class IRegistry {
public:
  virtual ~IRegistry() = default;
  virtual std::int32_t RegOpenKeyExA(std::int32_t Root, const String& Name, std::int32_t Access, std::int32_t& Key) = 0;
  /// `Size` comes as the room there is, in characters, and goes as what the value takes.
  virtual std::int32_t RegQueryValueExA(std::int32_t Key, const String& Name, std::int32_t& Type, std::string& Value,
                                        std::int32_t& Size) = 0;
  virtual std::int32_t RegCloseKey(std::int32_t Key) = 0;
};
extern std::shared_ptr<IRegistry> gRegistry;

} // namespace portico

#include "drivers/standard/DriverRegistry.h"

namespace portico::drivers {
namespace {

constexpr StringView DriverKey = u"SOFTWARE\\Tolvane Instruments Inc.\\TolvaneIOLayer\\InstalledDrivers\\TVSCPI";
constexpr std::int32_t DriverKeyHandle = 1;

// Answers of the registry's functions, by their numbers in the system whose shape they have.
constexpr std::int32_t Success = 0;
constexpr std::int32_t NotFound = 2;
constexpr std::int32_t InvalidHandle = 6;
constexpr std::int32_t MoreData = 234;

} // namespace

std::int32_t DriverRegistry::RegOpenKeyExA(std::int32_t Root, const String& Name, std::int32_t, std::int32_t& Key) {
  if (Root != HKEY_LOCAL_MACHINE || !EqualNoCase(Name, DriverKey)) return NotFound;
  Key = DriverKeyHandle;
  return Success;
}

std::int32_t DriverRegistry::RegQueryValueExA(std::int32_t Key, const String& Name, std::int32_t& Type,
                                              std::string& Value, std::int32_t& Size) {
  if (Key != DriverKeyHandle) return InvalidHandle;
  if (!EqualNoCase(Name, u"Version")) return NotFound;
  const std::string stored = m_version + '\0'; // as a text value is kept
  const std::int32_t room = Size;
  Type = RegistryText;
  Size = static_cast<std::int32_t>(stored.size());
  if (room < Size) return MoreData;
  Value = stored;
  return Success;
}

std::int32_t DriverRegistry::RegCloseKey(std::int32_t Key) { return Key == DriverKeyHandle ? Success : InvalidHandle; }

} // namespace portico::drivers

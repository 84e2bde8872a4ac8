#pragma once

#include "platform/IRegistry.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace portico::memory {

/// What a registry function answers besides 0.
inline constexpr std::int32_t RegistryNotFound = 2;
inline constexpr std::int32_t RegistryBadHandle = 6;
inline constexpr std::int32_t RegistryMoreData = 234;

/// A registry of values that are put there. Names are compared without regard to case.
class Registry final : public IRegistry {
public:
  std::int32_t RegOpenKeyExA(std::int32_t Root, const String& Name, std::int32_t Access, std::int32_t& Key) override;
  std::int32_t RegQueryValueExA(std::int32_t Key, const String& Name, std::int32_t& Type, std::string& Value,
                                std::int32_t& Size) override;
  std::int32_t RegCloseKey(std::int32_t Key) override;

  /// A text, with the zero behind it that texts have there.
  void Put(std::int32_t root, const String& key, const String& name, const std::string& text);
  /// A number, its lowest byte first.
  void Put(std::int32_t root, const String& key, const String& name, std::uint32_t number);
  /// The bytes as they are, of any type.
  void Put(std::int32_t root, const String& key, const String& name, std::int32_t type, std::string bytes);

  /// From now on opening a key, or querying a value, answers this.
  void FailOpening(std::int32_t answer) { m_openAnswer = answer; }
  void FailQueries(std::int32_t answer) { m_queryAnswer = answer; }

  /// Each call with its numbers and names, such as "open -2147483646 KEY access 131135".
  const std::vector<std::string>& Calls() const { return m_calls; }
  /// How many keys are open.
  std::size_t KeysOpen() const { return m_open.size(); }

private:
  struct Entry {
    std::int32_t Type = 0;
    std::string Bytes;
  };
  using KeyName = std::pair<std::int32_t, String>;

  std::map<KeyName, std::map<String, Entry>> m_keys; // names in upper case
  std::map<std::int32_t, KeyName> m_open;
  std::int32_t m_lastKey = 0;
  std::optional<std::int32_t> m_openAnswer;
  std::optional<std::int32_t> m_queryAnswer;
  std::vector<std::string> m_calls;
};

} // namespace portico::memory

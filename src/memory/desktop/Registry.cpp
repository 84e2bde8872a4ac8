#include "memory/desktop/Registry.h"

namespace portico::memory {

std::int32_t Registry::RegOpenKeyExA(std::int32_t Root, const String& Name, std::int32_t Access, std::int32_t& Key) {
  m_calls.push_back("open " + std::to_string(Root) + " " + ToUtf8(Name) + " access " + std::to_string(Access));
  if (m_openAnswer) return *m_openAnswer;
  const KeyName name{Root, ToUpper(Name)};
  if (!m_keys.contains(name)) return RegistryNotFound;
  Key = ++m_lastKey;
  m_open[Key] = name;
  return 0;
}

std::int32_t Registry::RegQueryValueExA(std::int32_t Key, const String& Name, std::int32_t& Type, std::string& Value,
                                        std::int32_t& Size) {
  m_calls.push_back("query " + std::to_string(Key) + " " + ToUtf8(Name) + " size " + std::to_string(Size));
  if (m_queryAnswer) return *m_queryAnswer;
  const auto key = m_open.find(Key);
  if (key == m_open.end()) return RegistryBadHandle;
  const auto& values = m_keys[key->second];
  const auto found = values.find(ToUpper(Name));
  if (found == values.end()) return RegistryNotFound;
  const Entry& entry = found->second;
  const std::int32_t room = std::exchange(Size, static_cast<std::int32_t>(entry.Bytes.size()));
  Type = entry.Type;
  if (room < Size) return RegistryMoreData;
  // What is behind the value stays as it was.
  if (Value.size() < entry.Bytes.size()) Value.resize(entry.Bytes.size());
  Value.replace(0, entry.Bytes.size(), entry.Bytes);
  return 0;
}

std::int32_t Registry::RegCloseKey(std::int32_t Key) {
  m_calls.push_back("close " + std::to_string(Key));
  return m_open.erase(Key) == 1 ? 0 : RegistryBadHandle;
}

void Registry::Put(std::int32_t root, const String& key, const String& name, const std::string& text) {
  Put(root, key, name, RegistryText, text + '\0');
}

void Registry::Put(std::int32_t root, const String& key, const String& name, std::uint32_t number) {
  constexpr unsigned bits = 8;
  std::string bytes;
  for (unsigned shift = 0; shift < bits * sizeof number; shift += bits) {
    bytes += static_cast<char>(static_cast<unsigned char>(number >> shift));
  }
  Put(root, key, name, RegistryNumber, bytes);
}

void Registry::Put(std::int32_t root, const String& key, const String& name, std::int32_t type, std::string bytes) {
  m_keys[{root, ToUpper(key)}][ToUpper(name)] = {type, std::move(bytes)};
}

} // namespace portico::memory

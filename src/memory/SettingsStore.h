#pragma once

#include "platform/ISettingsStore.h"

#include <map>
#include <tuple>

namespace portico::memory {

/// Settings that live as long as the program.
class SettingsStore final : public ISettingsStore {
public:
  String GetSetting(const String& Title, const String& Section, const String& Key, const String& Default) override {
    const auto found = m_settings.find({Title, Section, Key});
    return found == m_settings.end() ? Default : found->second;
  }
  void SaveSetting(const String& Title, const String& Section, const String& Key, const String& Value) override {
    m_settings[{Title, Section, Key}] = Value;
  }

private:
  std::map<std::tuple<String, String, String>, String> m_settings;
};

} // namespace portico::memory

#pragma once

#include "framework/text/text.h"

#include <memory>

namespace portico {

/// The per-user store of settings: a string by application title, section and key. A save that fails raises nothing.
class ISettingsStore {
public:
  virtual ~ISettingsStore() = default;

  virtual String GetSetting(const String& Title, const String& Section, const String& Key, const String& Default) = 0;
  virtual void SaveSetting(const String& Title, const String& Section, const String& Key, const String& Value) = 0;
};

extern std::shared_ptr<ISettingsStore> gSettingsStore;

} // namespace portico

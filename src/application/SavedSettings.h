#pragma once

#include "platform/ISettingsStore.h"

#include <filesystem>
#include <utility>

namespace portico {

/// What the window has saved, for programs without its toolkit. It is read from the file anew at each question and
/// never written; where there is no such file, or none that can be read, nothing was saved. For sections and keys whose
/// names are letters and digits.
class SavedSettings final : public ISettingsStore {
public:
  /// Where the desktop has the settings of its user: XDG_CONFIG_HOME or, if that is no absolute path, ".config" in the
  /// home directory.
  SavedSettings();
  /// In a folder: for each title one of its name, with a file of its name and ".conf".
  explicit SavedSettings(std::filesystem::path folder) : m_folder(std::move(folder)) {}

  String GetSetting(const String& Title, const String& Section, const String& Key, const String& Default) override;
  /// Saves nothing.
  void SaveSetting(const String& Title, const String& Section, const String& Key, const String& Value) override;

private:
  std::filesystem::path m_folder;
};

} // namespace portico

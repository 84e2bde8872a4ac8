#pragma once

#include "platform/ISettingsStore.h"

#include <QString>

#include <utility>

namespace portico::qt {

/// The settings of the user, in the file that the desktop has for a program of the title: one group for each section.
/// Standard error is told the first time that something cannot be saved.
class SettingsStore final : public ISettingsStore {
public:
  SettingsStore() = default;
  /// Files of the titles' names in a folder instead.
  explicit SettingsStore(QString folder) : m_folder(std::move(folder)) {}

  String GetSetting(const String& Title, const String& Section, const String& Key, const String& Default) override;
  void SaveSetting(const String& Title, const String& Section, const String& Key, const String& Value) override;

private:
  template <class Use>
  auto With(const String& title, Use&& use) const;

  QString m_folder;
  bool m_isTold = false;
};

} // namespace portico::qt

#include "qt/desktop/SettingsStore.h"

#include "qt/values/QtText.h"

#include <QSettings>

#include <iostream>
#include <utility>

namespace portico::qt {
namespace {

QString Path(const String& section, const String& key) { return ToQt(section) + '/' + ToQt(key); }

} // namespace

template <class Use>
auto SettingsStore::With(const String& title, Use&& use) const {
  if (m_folder.isEmpty()) {
    QSettings settings(ToQt(title), ToQt(title));
    return use(settings);
  }
  QSettings settings(m_folder + '/' + ToQt(title) + ".conf", QSettings::IniFormat);
  return use(settings);
}

String SettingsStore::GetSetting(const String& Title, const String& Section, const String& Key, const String& Default) {
  return With(Title, [&](const QSettings& settings) {
    const QVariant value = settings.value(Path(Section, Key));
    return value.isValid() ? FromQt(value.toString()) : Default;
  });
}

void SettingsStore::SaveSetting(const String& Title, const String& Section, const String& Key, const String& Value) {
  With(Title, [&](QSettings& settings) {
    settings.setValue(Path(Section, Key), ToQt(Value));
    settings.sync();
    if (settings.status() != QSettings::AccessError || std::exchange(m_isTold, true)) return;
    std::cerr << "portico: the settings cannot be saved in " << settings.fileName().toStdString() << std::endl;
  });
}

} // namespace portico::qt

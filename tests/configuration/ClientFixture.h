#pragma once

#include "configuration/CConfiguration.h"
#include "configuration/CConfigurationClient.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/CObjectFactory.h"
#include "memory/SettingsStore.h"
#include "support/Labels.h"
#include "support/doubles/ConfigurationDouble.h"
#include "support/doubles/WindowDouble.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace portico::test {

using Trace = Journal;

/// Settings behind a trace of what is loaded from them and saved to them.
class RecordingStore final : public ISettingsStore {
public:
  explicit RecordingStore(Trace& trace);

  String GetSetting(const String& Title, const String& Section, const String& Key, const String& Default) override;
  void SaveSetting(const String& Title, const String& Section, const String& Key, const String& Value) override;

  memory::SettingsStore Settings;

private:
  Trace& m_trace;
};

/// A client over recording surroundings.
class ClientTest : public ::testing::Test {
protected:
  ClientTest();
  ~ClientTest() override;

  static Ref<CConfiguration> MadeServer();
  /// Makes the client and forgets what that took.
  void Start();
  String Item(const String& name);
  void Save(const String& key, const String& value);
  String Saved(const String& key);

  /// What the factory gives for "Configuration".
  static Ref<IObject>& Offered();
  inline static const CreatorRow ServerRow = {
      .Name = u"CtorFake",
      .Specification = u"Configuration",
      .ParamCount = 0,
      .Make = [](const Params&) { return Offered(); },
  };

  Trace Events;
  Ref<CObjectFactory> Factory = New<CObjectFactory>();
  Ref<CConfiguration> Items = MadeServer();
  Ref<ConfigurationDouble> Server = New<ConfigurationDouble>(Events, Items);
  std::shared_ptr<RecordingStore> Store = std::make_shared<RecordingStore>(Events);
  Ref<WindowDouble> Window = New<WindowDouble>(Events);
  Ref<CConfigurationClient> Client;
};

} // namespace portico::test

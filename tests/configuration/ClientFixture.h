#pragma once

#include "configuration/CConfiguration.h"
#include "configuration/CConfigurationClient.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/CObjectFactory.h"
#include "framework/shared/IMainWindow.h"
#include "memory/SettingsStore.h"
#include "support/Labels.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace portico::test {

using Trace = std::vector<std::string>;

/// The server of the program behind a trace of what is written to it and read from it.
class RecordingServer final : public IConfiguration {
public:
  explicit RecordingServer(Trace& trace) : m_trace(trace) { m_server.Initialize(); }
  StringView ClassName() const override { return u"RecordingServer"; }

  String ItemValue(StringView Name) override {
    m_trace.push_back("Get " + ToUtf8(Name));
    return m_server.ItemValue(Name);
  }
  void ItemValue(StringView Name, StringView Value) override {
    m_trace.push_back("Set " + ToUtf8(Name) + "=" + ToUtf8(Value));
    m_server.ItemValue(Name, Value);
  }
  void Clear() { m_server.Clear(); }

private:
  Trace& m_trace;
  CConfiguration m_server;
};

class RecordingStore final : public ISettingsStore {
public:
  explicit RecordingStore(Trace& trace) : m_trace(trace) {}

  String GetSetting(const String& Title, const String& Section, const String& Key, const String& Default) override {
    m_trace.push_back("Load " + ToUtf8(Title + u"/" + Section + u"/" + Key + u" or " + Default));
    return Settings.GetSetting(Title, Section, Key, Default);
  }
  void SaveSetting(const String& Title, const String& Section, const String& Key, const String& Value) override {
    m_trace.push_back("Save " + ToUtf8(Title + u"/" + Section + u"/" + Key + u"=" + Value));
    Settings.SaveSetting(Title, Section, Key, Value);
  }

  memory::SettingsStore Settings;

private:
  Trace& m_trace;
};

class RecordingWindow final : public IMainWindow {
public:
  explicit RecordingWindow(Trace& trace) : m_trace(trace) {}
  StringView ClassName() const override { return u"RecordingWindow"; }

  std::int32_t MousePointer() const override { return 0; }
  void MousePointer(std::int32_t) override {}
  bool Executing() const override { return false; }
  void Executing(bool) override {}
  bool StopRequested() const override { return false; }
  void StopRequested(bool) override {}
  void UpdateUI(const String& Name, const String& Value) override {
    m_trace.push_back("UpdateUI '" + ToUtf8(Name) + "' '" + ToUtf8(Value) + "'");
    if (OnUpdate) OnUpdate();
  }

  std::function<void()> OnUpdate;

private:
  Trace& m_trace;
};

/// A client over recording surroundings.
class ClientTest : public ::testing::Test {
protected:
  ClientTest() {
    gObjectFactory = Factory;
    gSettingsStore = Store;
    gMainForm = Window;
    Offered() = Server;
    Factory->Add(MakeCreator(ServerRow));
  }
  ~ClientTest() override {
    Client = nullptr;
    Offered() = nullptr;
    gObjectFactory = nullptr;
    gSettingsStore = nullptr;
    gMainForm = nullptr;
    HuntERR::Reset();
  }

  /// Makes the client and forgets what that took.
  void Start() {
    Client = New<CConfigurationClient>();
    Events.clear();
  }
  String Item(const String& name) { return Server->ItemValue(name); }
  void Save(const String& key, const String& value) {
    Store->Settings.SaveSetting(u"Tolvane Portico", u"Configuration", key, value);
  }
  String Saved(const String& key) {
    return Store->Settings.GetSetting(u"Tolvane Portico", u"Configuration", key, u"(none)");
  }

  /// What the factory gives for "Configuration".
  static Ref<IObject>& Offered() {
    static Ref<IObject> server;
    return server;
  }
  inline static const CreatorRow ServerRow = {
      .Name = u"CtorFake",
      .Specification = u"Configuration",
      .ParamCount = 0,
      .Make = [](const Params&) { return Offered(); },
  };

  Trace Events;
  Ref<CObjectFactory> Factory = New<CObjectFactory>();
  Ref<RecordingServer> Server = New<RecordingServer>(Events);
  std::shared_ptr<RecordingStore> Store = std::make_shared<RecordingStore>(Events);
  Ref<RecordingWindow> Window = New<RecordingWindow>(Events);
  Ref<CConfigurationClient> Client;
};

} // namespace portico::test

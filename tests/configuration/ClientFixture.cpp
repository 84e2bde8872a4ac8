#include "configuration/ClientFixture.h"

namespace portico::test {

RecordingStore::RecordingStore(Trace& trace) : m_trace(trace) {}

String RecordingStore::GetSetting(const String& Title, const String& Section, const String& Key,
                                  const String& Default) {
  m_trace.push_back("Load " + ToUtf8(Title + u"/" + Section + u"/" + Key + u" or " + Default));
  return Settings.GetSetting(Title, Section, Key, Default);
}

void RecordingStore::SaveSetting(const String& Title, const String& Section, const String& Key, const String& Value) {
  m_trace.push_back("Save " + ToUtf8(Title + u"/" + Section + u"/" + Key + u"=" + Value));
  Settings.SaveSetting(Title, Section, Key, Value);
}

ClientTest::ClientTest() {
  Server->NotesReads = true;
  gObjectFactory = Factory;
  gSettingsStore = Store;
  gMainForm = Window;
  Offered() = Server;
  Factory->Add(MakeCreator(ServerRow));
}

ClientTest::~ClientTest() {
  Client = nullptr;
  Offered() = nullptr;
  gObjectFactory = nullptr;
  gSettingsStore = nullptr;
  gMainForm = nullptr;
  HuntERR::Reset();
}

Ref<CConfiguration> ClientTest::MadeServer() {
  auto server = New<CConfiguration>();
  server->Initialize();
  return server;
}

void ClientTest::Start() {
  Client = New<CConfigurationClient>();
  Events.clear();
}

String ClientTest::Item(const String& name) { return Items->ItemValue(name); }

void ClientTest::Save(const String& key, const String& value) {
  Store->Settings.SaveSetting(u"Tolvane Portico", u"Configuration", key, value);
}

String ClientTest::Saved(const String& key) {
  return Store->Settings.GetSetting(u"Tolvane Portico", u"Configuration", key, u"(none)");
}

Ref<IObject>& ClientTest::Offered() {
  static Ref<IObject> server;
  return server;
}

} // namespace portico::test

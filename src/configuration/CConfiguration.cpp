#include "configuration/CConfiguration.h"

#include "configuration/ConfigurationXml.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/CResponse.h"
#include "framework/shared/Guards.h"

namespace portico {
namespace {

Ref<IResponse> Success(const ConfigurationXml& document) {
  auto response = New<CResponse>();
  response->Initialize(0, document.Text());
  return response;
}

} // namespace

std::uint64_t CConfiguration::NextState() {
  static std::uint64_t last = 0;
  return ++last;
}

void CConfiguration::Begin() {
  m_items = {};
  m_state = NextState();
}

void CConfiguration::Initialize() try {
  Begin();
  m_initialized = true;
} catch (...) {
  PassOn(Label(u".Initialize"));
}

Ref<IResponse> CConfiguration::Update(const String& Configuration) try {
  CheckInitialized(m_initialized);
  ConfigurationXml document(Configuration);
  document.ForEach(
      [this](const String& name, pugi::xml_node parameter) { ItemValue(name, ConfigurationXml::ValueOf(parameter)); });
  return AllItems();
} catch (...) {
  PassOn(Label(u".Update(Configuration)"), {Configuration});
}

Ref<IResponse> CConfiguration::Retrieve(const String& Configuration) try {
  CheckInitialized(m_initialized);
  if (Configuration.empty()) return AllItems();
  ConfigurationXml document(Configuration);
  document.ForEach(
      [this](const String& name, pugi::xml_node parameter) { ConfigurationXml::SetValue(parameter, ItemValue(name)); });
  return Success(document);
} catch (...) {
  PassOn(Label(u".Update(Configuration)"), {Configuration}); // the two have always shared a label
}

void CConfiguration::Clear() try { Begin(); } catch (...) {
  PassOn(Label(u".Clear()"));
}

CSetting* CConfiguration::Find(const ItemName& Key) {
  if (Key.Place.State != m_state || Key.Place.Item == nullptr) {
    const Ref<CSetting>* item = m_items.Find(Key.Name);
    Key.Place = {m_state, item == nullptr ? nullptr : item->Get()};
  }
  return static_cast<CSetting*>(Key.Place.Item);
}

String CConfiguration::ItemByKey(const ItemName& Key) try {
  CheckInitialized(m_initialized);
  const CSetting* item = Find(Key);
  if (item == nullptr) {
    HuntERR::Raise(ErrorNumber::NoSuchItem, ClassName(),
                   String(u"Requested configuration item, ").append(Key.Name).append(u", does not exist."));
  }
  return item->Value();
} catch (...) {
  PassOn(Label(u".IConfiguration_ItemValue()"), {Key.Name});
}

void CConfiguration::ItemByKey(const ItemName& Key, StringView Value) try {
  if (!m_initialized || Key.Name.empty()) return;
  if (CSetting* item = Find(Key)) {
    item->Value(String(Value));
    return;
  }
  auto item = New<CSetting>();
  item->Initialize(String(Key.Name), String(Value));
  m_items.Add(item, Key.Name);
} catch (...) { // deliberately unreported: the caller carries on with the items as they are
  return;
}

String CConfiguration::ItemValue(StringView Name) { return ItemByKey(ItemName{Name}); }

void CConfiguration::ItemValue(StringView Name, StringView Value) { ItemByKey(ItemName{Name}, Value); }

Ref<IResponse> CConfiguration::AllItems() const {
  ConfigurationXml document;
  for (std::size_t i = 1; i <= m_items.Count(); ++i) document.Append(m_items.Item(i)->Name(), m_items.Item(i)->Value());
  return Success(document);
}

const CreatorRow CtorConfiguration = {
    .Name = u"CtorConfiguration",
    .Specification = Class::Configuration,
    .ParamCount = Class::Configuration.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> {
      auto configuration = New<CConfiguration>();
      configuration->Initialize();
      return configuration;
    },
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Configuration object does not exist.",
    .Singleton = true,
};

} // namespace portico

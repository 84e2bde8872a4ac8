#include "support/doubles/ConfigurationDouble.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/CResponse.h"

#include <utility>

namespace portico::test {

ConfigurationDouble::ConfigurationDouble(Journal& journal, Ref<IConfiguration> behind)
    : m_journal(journal), m_behind(std::move(behind)) {}

StringView ConfigurationDouble::ClassName() const { return u"ConfigurationDouble"; }

String ConfigurationDouble::ItemValue(StringView Name) {
  ++Reads;
  if (NotesReads) Note("get " + ToUtf8(Name));
  if (m_behind) return m_behind->ItemValue(Name);
  const auto item = Items.find(String(Name));
  HuntERR::Check(item != Items.end(), ErrorNumber::NoSuchItem, u"no such item");
  return item->second;
}

void ConfigurationDouble::ItemValue(StringView Name, StringView Value) {
  Note(ToUtf8(Name) + "=" + ToUtf8(Value));
  if (m_behind) {
    m_behind->ItemValue(Name, Value);
  } else {
    Items[String(Name)] = Value;
  }
}

Ref<IResponse> ConfigurationDouble::Update(const String& Configuration) {
  Note("Update(" + ToUtf8(Configuration) + ")");
  return Respond();
}

Ref<IResponse> ConfigurationDouble::Retrieve(const String& Configuration) {
  Note("Retrieve(" + ToUtf8(Configuration) + ")");
  return Respond();
}

void ConfigurationDouble::Note(const std::string& line) {
  m_journal.push_back(line);
  if (OnCall) OnCall();
}

Ref<IResponse> ConfigurationDouble::Respond() const {
  auto response = New<CResponse>();
  response->Initialize(0, Answer);
  return response;
}

} // namespace portico::test

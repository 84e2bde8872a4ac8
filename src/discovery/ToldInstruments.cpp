#include "discovery/ToldInstruments.h"

#include "discovery/ListedInstrument.h"
#include "drivers/ResourceName.h"

namespace portico::discovery {
namespace {

/// The same for all names of an instrument.
String Meaning(const String& name) {
  const auto parsed = drivers::ResourceName::Parse(ToUtf8(name));
  const auto* known = std::get_if<drivers::ResourceName>(&parsed);
  return ToUpper(known != nullptr ? FromUtf8(known->Canonical()).Text : Trim(name));
}

} // namespace

ToldInstruments::ToldInstruments(const std::vector<String>& known) {
  for (const String& name : known) m_meanings.insert(Meaning(name));
}

bool ToldInstruments::Add(const String& name) {
  return m_meanings.size() < MostListed && m_meanings.insert(Meaning(name)).second;
}

} // namespace portico::discovery

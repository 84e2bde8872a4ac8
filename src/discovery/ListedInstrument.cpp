#include "discovery/ListedInstrument.h"

#include "drivers/ResourceName.h"
#include "framework/text/Printable.h"

#include <algorithm>

namespace portico::discovery {
namespace {

String OnOneLine(std::string_view bytes) {
  String text = FromUtf8(Printable(FromUtf8(bytes).Text)).Text;
  std::replace(text.begin(), text.end(), u'\t', u'?');
  return String(Trim(text));
}

} // namespace

std::optional<FoundInstrument> ListedInstrument(std::string_view name, const std::vector<std::string>& facts) {
  const auto parsed = drivers::ResourceName::Parse(name);
  const auto* known = std::get_if<drivers::ResourceName>(&parsed);
  const String text = FromUtf8(name).Text; // whose marks of bad bytes are in no code page
  if (known == nullptr || known->Canonical() != name || FindOutsideCodePage(text)) return {};
  FoundInstrument instrument{text, {}};
  for (const std::string& fact : facts) {
    const String line = OnOneLine(fact);
    if (line.empty()) continue;
    if (!instrument.Description.empty()) instrument.Description += u", ";
    instrument.Description += line;
  }
  return instrument;
}

} // namespace portico::discovery

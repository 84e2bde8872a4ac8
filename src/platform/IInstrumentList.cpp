#include "platform/IInstrumentList.h"

#include <optional>

namespace portico {
namespace {

constexpr StringView KindMark = u"->";

std::optional<String> NameThatOpens(const String& itemName) {
  const auto mark = itemName.find(KindMark);
  if (mark == String::npos) return {};
  const StringView kind = StringView(itemName).substr(0, mark);
  if (!EqualNoCase(kind, u"Visa") && !EqualNoCase(kind, u"VInstr")) return {};
  return itemName.substr(mark + KindMark.size());
}

} // namespace

std::vector<String> NamesThatOpen(IInstrumentList& list) {
  std::vector<String> names;
  const auto tree = list.OpenTree(InstrumentTreeKind);
  const auto item = tree->SelectBranch(InstrumentBranch);
  for (item->First(); !item->IsDone(); item->Next()) {
    if (const auto name = NameThatOpens(item->ItemName())) names.push_back(*name);
  }
  return names;
}

} // namespace portico

#include "instructions/CInstProcessors.h"

#include "framework/containers/ItemByValue.h"

namespace portico {

Ref<IInstProcessor> CInstProcessors::Add(const Ref<IInstProcessor>& NewItem, const String& Key) try {
  m_list.Add(NewItem, Key);
  return NewItem;
} catch (...) {
  PassOn(u"CInstProcessors.Add(NewItem,Key)", {NewItem, Key});
}

Ref<IInstProcessor> CInstProcessors::Item(const Value& IndexOrKey) const try {
  return ItemByValue(m_list, IndexOrKey);
} catch (const Error& error) {
  if (error.Record().Number == ErrorNumber::InvalidArgument) return {};
  PassOn(u"CInstProcessors.Item(IndexOrKey)", {IndexOrKey});
}

std::size_t CInstProcessors::Count() const try { return m_list.Count(); } catch (...) {
  PassOn(u"CInstProcessors.Count");
}

void CInstProcessors::Remove(const Value& IndexOrKey) try { RemoveByValue(m_list, IndexOrKey); } catch (...) {
  PassOn(u"CInstProcessors.Remove(IndexOrKey)", {IndexOrKey});
}

std::vector<Ref<IInstProcessor>> CInstProcessors::NewEnum() const try { return ItemsOf(m_list); } catch (...) {
  PassOn(u"CInstProcessors.NewEnum");
}

} // namespace portico

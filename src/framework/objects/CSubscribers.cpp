#include "framework/objects/CSubscribers.h"

#include "framework/containers/ItemByValue.h"

namespace portico {

Ref<ISubscriber> CSubscribers::Add(const Ref<ISubscriber>& NewItem, const String& Key) try {
  m_list.Add(NewItem, Key);
  return NewItem;
} catch (...) {
  PassOn(u"CSubscribers.Add(NewItem,Key)", {NewItem, Key});
}

Ref<ISubscriber> CSubscribers::Item(const Value& IndexOrKey) const try {
  return ItemByValue(m_list, IndexOrKey);
} catch (...) {
  PassOn(u"CSubscribers.Item(IndexOrKey)", {IndexOrKey});
}

Ref<ISubscriber> CSubscribers::At(std::size_t Position) const try { return m_list.Item(Position); } catch (...) {
  PassOn(u"CSubscribers.Item(IndexOrKey)", {static_cast<double>(Position)});
}

std::size_t CSubscribers::Count() const try { return m_list.Count(); } catch (...) {
  PassOn(u"CSubscribers.Count");
}

void CSubscribers::Remove(const Value& IndexKeyOrObject) try {
  if (!IndexKeyOrObject.IsObject()) return RemoveByValue(m_list, IndexKeyOrObject);
  const auto object = IndexKeyOrObject.ToObject<IObject>();
  for (std::size_t i = 1; i <= m_list.Count(); ++i) {
    if (IsSameObject(m_list.Item(i), object)) return m_list.Remove(i);
  }
} catch (...) {
  PassOn(u"CSubscribers.Remove(IndexKeyOrObject)", {IndexKeyOrObject});
}

std::vector<Ref<ISubscriber>> CSubscribers::NewEnum() const try { return ItemsOf(m_list); } catch (...) {
  PassOn(u"CSubscribers.NewEnum");
}

} // namespace portico

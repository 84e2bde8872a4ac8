#include "framework/CSubscribers.h"

namespace portico {
namespace {

std::size_t Position(const Value& index) {
  const std::int32_t number = index.ToLong();
  return number < 1 ? 0 : static_cast<std::size_t>(number);
}

} // namespace

Ref<ISubscriber> CSubscribers::Add(const Ref<ISubscriber>& NewItem, const String& Key) try {
  m_list.Add(NewItem, Key);
  return NewItem;
} catch (...) {
  PassOn(u"CSubscribers.Add(NewItem,Key)", {NewItem, Key});
}

Ref<ISubscriber> CSubscribers::Item(const Value& IndexOrKey) const try {
  if (const auto key = IndexOrKey.AsText()) return m_list.Item(*key);
  return m_list.Item(Position(IndexOrKey));
} catch (...) {
  PassOn(u"CSubscribers.Item(IndexOrKey)", {IndexOrKey});
}

std::size_t CSubscribers::Count() const try { return m_list.Count(); } catch (...) {
  PassOn(u"CSubscribers.Count");
}

void CSubscribers::Remove(const Value& IndexKeyOrObject) try {
  if (const auto key = IndexKeyOrObject.AsText()) return m_list.Remove(*key);
  if (!IndexKeyOrObject.IsObject()) return m_list.Remove(Position(IndexKeyOrObject));
  const auto object = IndexKeyOrObject.ToObject<IObject>();
  for (std::size_t i = 1; i <= m_list.Count(); ++i) {
    if (IsSameObject(m_list.Item(i), object)) return m_list.Remove(i);
  }
} catch (...) {
  PassOn(u"CSubscribers.Remove(IndexKeyOrObject)", {IndexKeyOrObject});
}

std::vector<Ref<ISubscriber>> CSubscribers::NewEnum() const try {
  std::vector<Ref<ISubscriber>> subscribers;
  for (std::size_t i = 1; i <= m_list.Count(); ++i) subscribers.push_back(m_list.Item(i));
  return subscribers;
} catch (...) {
  PassOn(u"CSubscribers.NewEnum");
}

} // namespace portico

#include "framework/objects/CObjectFactories.h"

#include "framework/containers/ItemByValue.h"

namespace portico {

std::size_t CObjectFactories::Count() const try { return m_creators.Count(); } catch (...) {
  PassOn(u"CObjectFactories.Count");
}

std::uint64_t CObjectFactories::NextState() {
  static std::uint64_t last = 0;
  return ++last;
}

Ref<ICreator> CObjectFactories::Item(const Value& IndexOrKey) const { return Find(IndexOrKey); }

Ref<ICreator> CObjectFactories::Item(const CreatorKey& Key) const {
  if (Key.Place.State != m_state) Key.Place = {m_state, &Find(Value::Borrowed(Key.Specification))};
  return *Key.Place.Creator;
}

const Ref<ICreator>& CObjectFactories::Find(const Value& IndexOrKey) const try {
  if (!IndexOrKey.IsNumeric()) return ItemByValue(m_creators, IndexOrKey);
  return m_creators.Item(PositionOf(IndexOrKey, 0));
} catch (...) {
  PassOn(u"CObjectFactories.Item(IndexOrKey)", {IndexOrKey});
}

std::vector<Ref<ICreator>> CObjectFactories::NewEnum() const try { return ItemsOf(m_creators); } catch (...) {
  PassOn(u"CObjectFactories.NewEnum");
}

void CObjectFactories::Add(const Ref<ICreator>& Creator, const Value& Specification) try {
  m_state = NextState();
  m_creators.Add(Creator, Specification.ToString());
} catch (...) {
  PassOn(u"CObjectFactories.Add(Creator,Specification)", {Creator, Specification});
}

void CObjectFactories::Remove(const Value& IndexOrKey) try {
  m_state = NextState();
  RemoveByValue(m_creators, IndexOrKey);
} catch (...) {
  PassOn(u"CObjectFactories.Remove(IndexOrKey)", {IndexOrKey});
}

} // namespace portico

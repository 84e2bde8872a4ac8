#include "instructions/CInstProcessors.h"

namespace portico {
namespace {

std::size_t Position(const Value& index) {
  const std::int32_t number = index.ToLong();
  return number < 1 ? 0 : static_cast<std::size_t>(number);
}

} // namespace

Ref<IInstProcessor> CInstProcessors::Add(const Ref<IInstProcessor>& NewItem, const String& Key) try {
  m_list.Add(NewItem, Key);
  return NewItem;
} catch (...) {
  PassOn(u"CInstProcessors.Add(NewItem,Key)", {NewItem, Key});
}

Ref<IInstProcessor> CInstProcessors::Item(const Value& IndexOrKey) const try {
  if (const auto key = IndexOrKey.AsText()) return m_list.Item(*key);
  return m_list.Item(Position(IndexOrKey));
} catch (const Error& error) {
  if (error.Record().Number == ErrorNumber::InvalidArgument) return {};
  PassOn(u"CInstProcessors.Item(IndexOrKey)", {IndexOrKey});
}

std::size_t CInstProcessors::Count() const try { return m_list.Count(); } catch (...) {
  PassOn(u"CInstProcessors.Count");
}

void CInstProcessors::Remove(const Value& IndexOrKey) try {
  if (const auto key = IndexOrKey.AsText()) return m_list.Remove(*key);
  m_list.Remove(Position(IndexOrKey));
} catch (...) {
  PassOn(u"CInstProcessors.Remove(IndexOrKey)", {IndexOrKey});
}

std::vector<Ref<IInstProcessor>> CInstProcessors::NewEnum() const try {
  std::vector<Ref<IInstProcessor>> processors;
  for (std::size_t i = 1; i <= m_list.Count(); ++i) processors.push_back(m_list.Item(i));
  return processors;
} catch (...) {
  PassOn(u"CInstProcessors.NewEnum");
}

} // namespace portico

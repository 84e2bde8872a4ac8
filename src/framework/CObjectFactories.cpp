#include "framework/CObjectFactories.h"

namespace portico {
namespace {

/// A position below 1 is as absent as one beyond the end.
std::size_t Position(std::int64_t number) { return number < 1 ? 0 : static_cast<std::size_t>(number); }

} // namespace

std::size_t CObjectFactories::Count() const try { return m_creators.Count(); } catch (...) {
  PassOn(u"CObjectFactories.Count");
}

Ref<ICreator> CObjectFactories::Item(const Value& IndexOrKey) const try {
  if (IndexOrKey.IsNumeric()) return m_creators.Item(Position(std::int64_t{IndexOrKey.ToLong()} + 1));
  const auto key = IndexOrKey.AsText();
  return key ? m_creators.Item(*key) : m_creators.Item(IndexOrKey.ToString());
} catch (...) {
  PassOn(u"CObjectFactories.Item(IndexOrKey)", {IndexOrKey});
}

std::vector<Ref<ICreator>> CObjectFactories::NewEnum() const try {
  std::vector<Ref<ICreator>> creators;
  for (std::size_t i = 1; i <= m_creators.Count(); ++i) creators.push_back(m_creators.Item(i));
  return creators;
} catch (...) {
  PassOn(u"CObjectFactories.NewEnum");
}

void CObjectFactories::Add(const Ref<ICreator>& Creator, const Value& Specification) try {
  m_creators.Add(Creator, Specification.ToString());
} catch (...) {
  PassOn(u"CObjectFactories.Add(Creator,Specification)", {Creator, Specification});
}

void CObjectFactories::Remove(const Value& IndexOrKey) try {
  if (const auto key = IndexOrKey.AsText()) {
    m_creators.Remove(*key);
  } else {
    m_creators.Remove(Position(IndexOrKey.ToLong()));
  }
} catch (...) {
  PassOn(u"CObjectFactories.Remove(IndexOrKey)", {IndexOrKey});
}

} // namespace portico

#pragma once

#include "document/entities/IIteratableObject.h"

namespace portico {

/// Yields what another iterator yields, a portion at a time: `IsDone` tells the end of the portion, and the next
/// `FirstItem` begins the one behind it. A portion is what can be dealt with in one turn of the event loop.
class PortionIterator final : public IIterator {
public:
  explicit PortionIterator(const Ref<IIterator>& all) : m_all(all) {}
  StringView ClassName() const override { return u"PortionIterator"; }

  void Attach(const Ref<IIteratableObject>& Object) override;
  Value FirstItem() override;
  Value CurrentItem() const override;
  bool IsDone() const override { return m_isFull || m_all->IsDone(); }
  Value NextItem() override;
  Value SkipTo(const String& Name, const String& Value) override { return m_all->SkipTo(Name, Value); }

  /// There is no portion behind this one.
  bool IsLast() const { return m_all->IsDone(); }
  /// What has been yielded, as a share of all, from 0 to 1.
  double Share() const;

private:
  Value Take(Value item);

  Ref<IIterator> m_all;
  Ref<IIteratableObject> m_object;
  std::int64_t m_yielded = 0;
  std::int64_t m_entities = 0; // of this portion
  std::int64_t m_bytes = 0;
  bool m_isFull = false;
};

} // namespace portico

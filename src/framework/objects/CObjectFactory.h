#pragma once

#include "framework/objects/CObjectFactories.h"

namespace portico {

/// The factory over its list of creators, which it owns.
class CObjectFactory final : public IObjectFactory {
public:
  StringView ClassName() const override { return u"CObjectFactory"; }

  Ref<IObject> CreateObject(const Value& Specification, const Params& Parameters) override;
  Ref<ICreator> GetCreator(const Value& Specification) override;
  void Add(const Ref<ICreator>& Creator) override;
  void Remove(const Ref<ICreator>& Creator) override;
  void Substitue(const Ref<ICreator>& Creator) override;
  Ref<IObject> CreateByKey(const CreatorKey& Key, const Params& Parameters) override;

  const CObjectFactories& Creators() const { return m_creators; }

private:
  CObjectFactories m_creators;
};

} // namespace portico

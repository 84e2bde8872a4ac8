#include "framework/objects/CObjectFactory.h"

namespace portico {

namespace {

constexpr StringView LabelOfCreateObject = u"CObjectFactory.IObjectFactory_CreateObject(Specification,Params)";

} // namespace

Ref<IObject> CObjectFactory::CreateObject(const Value& Specification, const Params& Parameters) try {
  return m_creators.Item(Specification)->Create(Parameters);
} catch (...) {
  PassOn(LabelOfCreateObject, {Specification, Parameters});
}

Ref<IObject> CObjectFactory::CreateByKey(const CreatorKey& Key, const Params& Parameters) try {
  return m_creators.Item(Key)->Create(Parameters);
} catch (...) {
  PassOn(LabelOfCreateObject, {Key.Specification, Parameters});
}

Ref<ICreator> CObjectFactory::GetCreator(const Value& Specification) try {
  return m_creators.Item(Specification);
} catch (...) {
  PassOn(u"CObjectFactory.IObjectFactory_GetCreator(Specification)", {Specification});
}

void CObjectFactory::Add(const Ref<ICreator>& Creator) try {
  m_creators.Add(Creator, Creator->Specification());
} catch (...) {
  PassOn(u"CObjectFactory.IObjectFactory_Add(Creator)", {Creator});
}

void CObjectFactory::Remove(const Ref<ICreator>& Creator) try {
  m_creators.Remove(Creator->Specification());
} catch (...) {
  PassOn(u"CObjectFactory.IObjectFactory_Remove(Creator)", {Creator});
}

void CObjectFactory::Substitue(const Ref<ICreator>& Creator) try {
  Remove(Creator);
  Add(Creator);
} catch (...) {
  PassOn(u"CObjectFactory.IObjectFactory_Substitue(Creator)", {Creator});
}

} // namespace portico

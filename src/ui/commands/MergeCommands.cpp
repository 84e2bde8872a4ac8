#include "ui/commands/MergeCommands.h"

#include "document/entities/IDataStore.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/Guards.h"
#include "ui/base/UserCommands.h"

namespace portico {

void CMerge::Initialize(const Ref<IIteratableObject>& Target, const Ref<IIterator>& SourceIterator) try {
  HuntERR::Check(bool(Target), ErrorNumber::InvalidArgument, u"Target cannot be nothing.");
  HuntERR::Check(bool(SourceIterator), ErrorNumber::InvalidArgument, u"SourceIterator cannot be nothing.");
  m_target = Cast<CDataFIFO>(Target);
  m_sourceIterator = SourceIterator;
  SetInitialized();
} catch (...) {
  PassOn(u"CPaste.Initialize()");
}

void CMerge::Act() { m_target->MergeData(m_sourceIterator); }

void CMergeFrom::Initialize(const Ref<IIteratableObject>& Target, const String& FileName,
                            const Ref<IIterator>& SourceIterator) try {
  CheckFactory();
  const auto store = Create(Class::DataStore, FileName, false);
  const auto source = store->FillDataContainerFromStore();
  SourceIterator->Attach(source);
  m_merge = Create(Class::MergeDataContainer, Target, SourceIterator);
  SetInitialized();
} catch (...) {
  PassOn(u"CMergeFrom.Initialize()");
}

void CMergeFrom::Act() { m_merge->Execute(); }

const CreatorRow CtorMerge = {
    .Name = u"CtorMerge",
    .Specification = Class::MergeDataContainer,
    .ParamCount = Class::MergeDataContainer.ParamCount,
    .Make =
        [](const Params& Parameters) {
          auto merge = New<CMerge>();
          merge->Initialize(Parameters[0].ToObject<IIteratableObject>(), Parameters[1].ToObject<IIterator>());
          return Ref<IObject>(merge);
        },
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a merge command.",
};

const CreatorRow CtorMergeFrom = {
    .Name = u"CtorMergeFrom",
    .Specification = Class::MergeDataContainerFromFile,
    .ParamCount = Class::MergeDataContainerFromFile.ParamCount,
    .Make =
        [](const Params& Parameters) {
          auto merge = New<CMergeFrom>();
          merge->Initialize(Parameters[0].ToObject<IIteratableObject>(), Parameters[1].ToString(),
                            Parameters[2].ToObject<IIterator>());
          return Ref<IObject>(merge);
        },
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a merge from command.",
};

} // namespace portico

#pragma once

#include "document/entities/IDataStore.h"

namespace portico {

/// Stands in for the log where there is no XML parser, so that nobody has to ask. Keeps nothing.
class CNullDataStore final : public IDataStore {
public:
  StringView ClassName() const override { return u"CNullDataStore"; }

  /// A container on which `Initialize` was never called.
  Ref<IIteratableObject> FillDataContainerFromStore() override;
  void AppendDataEntityToStore(const Ref<IDataEntity>& /*DataEntity*/) override {}
  void OpenSession() override {}
  void CloseSession() override {}
};

} // namespace portico

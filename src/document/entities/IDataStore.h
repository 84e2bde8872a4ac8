#pragma once

#include "document/entities/IDataEntity.h"
#include "document/entities/IIteratableObject.h"
#include "framework/errors/Refusal.h"
#include "framework/objects/ClassKey.h"

namespace portico {

/// Keeps data entities outside the process, in sessions.
class IDataStore : public virtual IObject {
public:
  /// A new container with all entities of all sessions.
  virtual Ref<IIteratableObject> FillDataContainerFromStore() = 0;
  virtual void AppendDataEntityToStore(const Ref<IDataEntity>& DataEntity) = 0;
  virtual void OpenSession() = 0;
  virtual void CloseSession() = 0;

  /// `AppendDataEntityToStore` for a caller that expects some entities to be refused: what a store foresees comes back
  /// unraised.
  virtual Refusal Offer(const Ref<IDataEntity>& DataEntity) {
    AppendDataEntityToStore(DataEntity);
    return {};
  }
};

namespace Class {

/// The file's name, and whether what stands in the file goes. A store that keeps nothing where no XML document can be
/// made.
inline constexpr ClassKey<IDataStore, StringView, bool> DataStore{u"DataStore"};

} // namespace Class

} // namespace portico

#pragma once

#include "configuration/PackedText.h"
#include "document/entities/IDataEntity.h"
#include "framework/containers/SummedSequence.h"

#include <cstdint>
#include <memory>

namespace portico {

struct EntitySlot;
class IEntityHolder;

using EntityChunk = Chunk<std::unique_ptr<EntitySlot>, IEntityHolder>;

/// Who holds entities and is told when their content changes.
class IEntityHolder {
public:
  virtual void AttributesChanged(EntitySlot& slot) noexcept = 0;
  virtual void DataChanged(EntitySlot& slot) = 0;

protected:
  ~IEntityHolder() = default;
};

/// A place in a holder's sequence. One entity may stand in several, of one holder too.
struct EntitySlot {
  /// How the holder finds it: by its key, which is the entity's stamp; by a stamp that is the key no longer; or only by
  /// asking the entity itself.
  enum class Kind : std::uint8_t { ByKey, ByStamp, ByAsking };

  IEntityHolder& Holder() const { return *Home->OwnedBy; }

  Ref<IDataEntity> Entity;
  EntityChunk* Home = nullptr; // in the holder's sequence
  PackedText Key;
  EntitySlot* NextInBucket = nullptr; // of the holder's keys
  EntitySlot* NextOfEntity = nullptr;
  std::uint32_t KeyHash = 0;
  Kind FoundBy = Kind::ByKey;
};

inline void SetHome(const std::unique_ptr<EntitySlot>& slot, EntityChunk* home) { slot->Home = home; }

} // namespace portico

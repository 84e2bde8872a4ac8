#pragma once

#include "document/entities/IDataEntity.h"
#include "document/entities/IIteratableObject.h"
#include "framework/objects/Creator.h"

namespace portico {

/// An entity and an offset into its data; no entity and the offset 0 is the end marker. Members raise 0x80041460 before
/// `Initialize`.
class CDataPosition final : public IPosition {
public:
  StringView ClassName() const override { return u"CDataPosition"; }

  /// Without an offset it is 0, or -1 for an entity without data. One outside the data raises 5.
  void Initialize(const Ref<IDataEntity>& DataEntity, std::optional<std::int32_t> DataOffset);
  std::int32_t DataOffset() const;
  const Ref<IDataEntity>& DataEntity() const;
  /// It is the end marker.
  bool IsLast() const;
  /// The argument's entity is asked: a real position asked about an end marker raises 91.
  bool IsSame(const Ref<CDataPosition>& Position) const;
  String ID() const override;

private:
  bool m_initialized = false;
  Ref<IDataEntity> m_entity;
  std::int32_t m_offset = NoDataOffset;
};

/// "DataPosition": an entity or nothing, and an offset or an empty value.
extern const CreatorRow CtorDataPosition;

} // namespace portico

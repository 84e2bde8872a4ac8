#pragma once

#include "document/entities/IDataEntity.h"
#include "document/entities/IIteratableObject.h"
#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"

namespace portico {

/// An entity and an offset into its data; no entity and the offset 0 is the end marker. Members raise `NotInitialized`
/// before `Initialize`.
class CDataPosition final : public IPosition {
public:
  StringView ClassName() const override { return u"CDataPosition"; }

  /// Without an offset it is `DATA_firstIndex`, or `NoDataOffset` for an entity without data. An offset outside the
  /// data, or any but 0 for the end marker, raises `InvalidArgument`.
  void Initialize(const Ref<IDataEntity>& DataEntity, std::optional<std::int32_t> DataOffset);
  std::int32_t DataOffset() const;
  const Ref<IDataEntity>& DataEntity() const;
  /// It is the end marker.
  bool IsLast() const;
  /// The argument's entity answers: for an end marker as the argument of a real position this raises `MissingObject`.
  /// A null argument raises `InvalidArgument`.
  bool IsSame(const Ref<CDataPosition>& Position) const;
  String ID() const override;

private:
  bool m_initialized = false;
  Ref<IDataEntity> m_entity;
  std::int32_t m_offset = NoDataOffset;
};

namespace Class {

/// An entity or null, and an offset or an empty value. Part of the contract; nothing in the program asks the factory
/// for a position.
inline constexpr ClassKey<IPosition, Ref<IDataEntity>, Value> DataPosition{u"DataPosition"};

} // namespace Class

extern const CreatorRow CtorDataPosition;

} // namespace portico

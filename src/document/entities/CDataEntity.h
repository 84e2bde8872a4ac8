#pragma once

#include "configuration/CSettings.h"
#include "document/entities/IDataEntity.h"
#include "document/entities/PackedBytes.h"
#include "framework/objects/Creator.h"

#include <memory>

namespace portico {

class IEntityHolder;
struct EntitySlot;

/// The one implementation of a data entity. Made through the factory only. Members raise
/// `NotInitialized` before `Initialize`.
class CDataEntity final : public IDataEntity, public std::enable_shared_from_this<CDataEntity> {
public:
  StringView ClassName() const override { return u"CDataEntity"; }

  /// An empty `TimeStamp` asks `gTimeStamper` for a new one, and raises `ObjectRequired` if there is none.
  void Initialize(const ByteArray& data, StringView DataType, StringView TimeStamp);
  /// An absent name raises `BadIndex`.
  String DataAttributeValue(const String& Name) const;
  /// Adds the attribute if the name is new.
  void DataAttributeValue(const String& Name, const String& Value);
  void DataAttributeValue(const KeptName& Name, const PackedText& Value);
  String TimeStamp() const;
  /// An empty value stores a newly drawn stamp.
  void TimeStamp(StringView newValue);
  String DataType() const;
  void DataType(StringView newValue);

  Ref<IPosition> Position(std::optional<std::int32_t> DataOffset = {}) override;
  Ref<IAttributes> DataAttributes() const override;
  String DataAttribute(const String& Name) const override;
  void DataAttribute(const String& Name, const String& Value) override;
  void KeepAttribute(const KeptName& Name, const PackedText& Value) override;
  std::int32_t DataLength() const override;
  ByteArray ReadData() const override;
  String ReadText() const override;
  void UpdateData(const ByteArray& data) override;
  std::int32_t CompareToMe(const Ref<IDataEntity>& DataEntity) const override;

  // For who holds entities and finds them by their content. A slot is told of all changes until it is released.
  /// The entity itself, or null if it is of another class.
  static CDataEntity* From(const Ref<IDataEntity>& entity);
  void Hold(EntitySlot& slot);
  void Release(const EntitySlot& slot) noexcept;
  /// Some slot of this holder, or null.
  const EntitySlot* SlotIn(const IEntityHolder& holder) const;
  /// The attributes as they are kept; there is a table once the entity is initialised.
  const SettingTable& Attributes() const { return m_attributes; }
  /// As it is kept; null if there is none.
  const PackedText* Stamp() const;
  /// Initialised, and without renamed attributes: what equals it has its stamp.
  bool IsPlain() const { return IsInitialized() && !m_attributes.HasRenamed(); }

private:
  String IDataEntity_DataType() const override;
  String IDataEntity_TimeStamp() const override;

  /// Negative for an array whose length the entity cannot tell.
  static std::int32_t CalculateDataLength(const ByteArray& data);
  Ref<IPosition> CreatePosition(std::optional<std::int32_t> DataOffset);
  bool CompareAttributes(const Ref<IDataEntity>& other) const;
  bool CompareData(const Ref<IDataEntity>& other) const;
  void CheckAccess() const;
  void StoreData(PackedBytes data);
  bool IsInitialized() const { return m_attributes.Exists(); }
  SettingTable::Listener Listener() const;
  /// The attributes for one operation.
  CSettings Settings() const { return {m_attributes, Listener()}; }
  void AttributesChanged() const noexcept;

  // There are millions of these: nothing is kept that can be told from the rest.
  EntitySlot* m_slots = nullptr; // where it is held
  PackedBytes m_data;
  mutable SettingTable m_attributes; // who reads may leave an object behind that shows them
};

/// Makes `Class::DataEntity`.
extern const CreatorRow CtorDataEntity;

namespace modDataDocument {

/// Asks the factory for an entity. Raises `CannotCarryOut` if there is no factory.
Ref<CDataEntity> CreateADataEntity(const ByteArray& data, const String& DataType, const String& TimeStamp);

} // namespace modDataDocument
} // namespace portico

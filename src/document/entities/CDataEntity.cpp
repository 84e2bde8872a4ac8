#include "document/entities/CDataEntity.h"

#include "document/entities/CDataPosition.h"
#include "document/entities/EntitySlot.h"
#include "document/entities/ITimeStamp.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Guards.h"

#include <limits>
#include <typeinfo>

namespace portico {
namespace {

/// The parts of the answer of `CompareToMe`.
constexpr std::int32_t AttributesDiffer = 2;
constexpr std::int32_t DataDiffer = 4;

constexpr StringView LabelOfDataAttributeValue = u"CDataEntity.DataAttributeValue(Name,Value)";
constexpr StringView LabelOfDataAttribute = u"CDataEntity.IDataEntity_DataAttribute(Name,Value)";
constexpr StringView LabelOfReadData = u"CDataEntity.IDataEntity_ReadData";

const KeptName& TypeName() {
  static const KeptName name(AttributeName::DataType);
  return name;
}

const KeptName& StampName() {
  static const KeptName name(AttributeName::Timestamp);
  return name;
}

} // namespace

void CDataEntity::Initialize(const ByteArray& data, StringView DataType, StringView TimeStamp) try {
  HuntERR::Check(bool(gTimeStamper), ErrorNumber::ObjectRequired,
                 u"Data entity requires a time stamper. There is none.");
  HuntERR::Check(CalculateDataLength(data) >= 0, ErrorNumber::InvalidArgument, u"Invalid data array.");
  PackedBytes kept(data);
  m_attributes.Create();
  AttributesChanged();
  StoreData(std::move(kept));
  this->DataType(DataType);
  this->TimeStamp(TimeStamp);
} catch (...) {
  PassOn(u"CDataEntity.Initialize(data,DataType,TimeStamp)", {data, DataType, TimeStamp});
}

String CDataEntity::DataAttributeValue(const String& Name) const try {
  CheckInitialized(IsInitialized());
  return Settings().Value(Name);
} catch (...) {
  PassOn(u"CDataEntity.DataAttributeValue(Name)", {Name});
}

void CDataEntity::DataAttributeValue(const String& Name, const String& Value) try {
  CheckAccess();
  Settings().Value(Name, Value);
} catch (...) {
  PassOn(LabelOfDataAttributeValue, {Name, Value});
}

void CDataEntity::DataAttributeValue(const KeptName& Name, const PackedText& Value) try {
  CheckAccess();
  Settings().Value(Name, Value);
} catch (...) {
  PassOn(LabelOfDataAttributeValue, {Name.Text, Value.ToString()});
}

void CDataEntity::TimeStamp(StringView newValue) try {
  CheckAccess();
  Settings().Value(StampName(), newValue.empty() ? PackedText(gTimeStamper->TimeStamp()) : PackedText(newValue));
} catch (...) {
  PassOn(u"CDataEntity.TimeStamp(newValue)", {newValue});
}

void CDataEntity::DataType(StringView newValue) try {
  CheckAccess();
  Settings().Value(TypeName(), Shared(newValue));
} catch (...) {
  PassOn(u"CDataEntity.DataType(newValue)", {newValue});
}

Ref<IPosition> CDataEntity::Position(std::optional<std::int32_t> DataOffset) try {
  CheckAccess();
  return CreatePosition(DataOffset);
} catch (...) {
  PassOn(u"CDataEntity.IDataEntity_Position(DataOffset)", {DataOffset ? Value(*DataOffset) : Value()});
}

Ref<IAttributes> CDataEntity::DataAttributes() const try {
  CheckAccess();
  if (const auto view = m_attributes.View()) return Ref<CSettings>(std::static_pointer_cast<CSettings>(view));
  const auto view = std::make_shared<CSettings>(m_attributes, Listener(), shared_from_this());
  m_attributes.SetView(view, Listener());
  return Ref<CSettings>(view);
} catch (...) {
  PassOn(u"CDataEntity.IDataEntity_DataAttributes");
}

String CDataEntity::DataAttribute(const String& Name) const try { return DataAttributeValue(Name); } catch (...) {
  PassOn(u"CDataEntity.IDataEntity_DataAttribute(Name)", {Name});
}

void CDataEntity::DataAttribute(const String& Name, const String& Value) try {
  DataAttributeValue(Name, Value);
} catch (...) {
  PassOn(LabelOfDataAttribute, {Name, Value});
}

void CDataEntity::KeepAttribute(const KeptName& Name, const PackedText& Value) try {
  DataAttributeValue(Name, Value);
} catch (...) {
  PassOn(LabelOfDataAttribute, {Name.Text, Value.ToString()});
}

std::int32_t CDataEntity::DataLength() const try {
  CheckAccess();
  return static_cast<std::int32_t>(m_data.Size());
} catch (...) {
  PassOn(u"CDataEntity.IDataEntity_DataLength");
}

String CDataEntity::DataType() const try {
  CheckAccess();
  return Settings().Value(TypeName());
} catch (...) {
  PassOn(u"CDataEntity.DataType");
}

String CDataEntity::IDataEntity_DataType() const try { return DataType(); } catch (...) {
  PassOn(u"CDataEntity.IDataEntity_DataType");
}

ByteArray CDataEntity::ReadData() const try {
  CheckAccess();
  return m_data.ToBytes();
} catch (...) {
  PassOn(LabelOfReadData);
}

String CDataEntity::ReadText() const try {
  CheckAccess();
  return m_data.ToText();
} catch (...) {
  PassOn(LabelOfReadData);
}

void CDataEntity::UpdateData(const ByteArray& data) try {
  CheckAccess();
  HuntERR::Check(CalculateDataLength(data) >= 0, ErrorNumber::InvalidArgument, u"Invalid new data array.");
  StoreData(PackedBytes(data));
} catch (...) {
  PassOn(u"CDataEntity.IDataEntity_UpdateData(data)", {data});
}

String CDataEntity::TimeStamp() const try {
  CheckAccess();
  return Settings().Value(StampName());
} catch (...) {
  PassOn(u"CDataEntity.TimeStamp");
}

String CDataEntity::IDataEntity_TimeStamp() const try { return TimeStamp(); } catch (...) {
  PassOn(u"CDataEntity.IDataEntity_TimeStamp");
}

std::int32_t CDataEntity::CompareToMe(const Ref<IDataEntity>& DataEntity) const try {
  CheckAccess();
  if (!DataEntity) return AttributesDiffer + DataDiffer;
  const std::int32_t attributes = CompareAttributes(DataEntity) ? 0 : AttributesDiffer;
  return attributes + (CompareData(DataEntity) ? 0 : DataDiffer);
} catch (...) {
  PassOn(u"CDataEntity.IDataEntity_CompareToMe(DataEntity)", {DataEntity});
}

std::int32_t CDataEntity::CalculateDataLength(const ByteArray& data) {
  if (data.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) return -1;
  return static_cast<std::int32_t>(data.size());
}

void CDataEntity::StoreData(PackedBytes data) {
  m_data = std::move(data);
  for (EntitySlot* slot = m_slots; slot != nullptr; slot = slot->NextOfEntity) slot->Holder().DataChanged(*slot);
}

Ref<IPosition> CDataEntity::CreatePosition(std::optional<std::int32_t> DataOffset) try {
  auto position = New<CDataPosition>();
  position->Initialize(Ref<IDataEntity>(shared_from_this()), DataOffset);
  return position;
} catch (...) {
  // Positions are too many to box their parameters for a creator; its label stays.
  PassOn(u"CtorDataPosition.ICreator_Create(Params)");
}

/// The other's attributes are asked.
bool CDataEntity::CompareAttributes(const Ref<IDataEntity>& other) const {
  const CDataEntity* sibling = From(other);
  if (sibling != nullptr && sibling->IsInitialized()) {
    return CSettings::AreSame(sibling->m_attributes, m_attributes, true);
  }
  return other->DataAttributes()->IsSame(DataAttributes(), true);
}

bool CDataEntity::CompareData(const Ref<IDataEntity>& other) const {
  if (const CDataEntity* sibling = From(other)) return m_data == sibling->m_data;
  return m_data.Equals(other->ReadData());
}

CDataEntity* CDataEntity::From(const Ref<IDataEntity>& entity) {
  IDataEntity* object = entity.Get();
  return object != nullptr && typeid(*object) == typeid(CDataEntity) ? static_cast<CDataEntity*>(object) : nullptr;
}

void CDataEntity::Hold(EntitySlot& slot) { slot.NextOfEntity = std::exchange(m_slots, &slot); }

void CDataEntity::Release(const EntitySlot& slot) noexcept {
  EntitySlot** link = &m_slots;
  while (*link != &slot) link = &(*link)->NextOfEntity;
  *link = slot.NextOfEntity;
}

const EntitySlot* CDataEntity::SlotIn(const IEntityHolder& holder) const {
  const EntitySlot* slot = m_slots;
  while (slot != nullptr && &slot->Holder() != &holder) slot = slot->NextOfEntity;
  return slot;
}

const PackedText* CDataEntity::Stamp() const {
  if (!IsInitialized()) return nullptr;
  const std::size_t at = m_attributes.Find(StampName().Packed);
  return at == m_attributes.Count() ? nullptr : &m_attributes.Value(at);
}

SettingTable::Listener CDataEntity::Listener() const {
  return [this] { AttributesChanged(); };
}

void CDataEntity::AttributesChanged() const noexcept {
  for (EntitySlot* slot = m_slots; slot != nullptr; slot = slot->NextOfEntity) slot->Holder().AttributesChanged(*slot);
}

void CDataEntity::CheckAccess() const { CheckAccessible(IsInitialized()); }

namespace {

/// Its text where it lies, or what else it reads as.
StringView TextOf(const Value& parameter, String& converted) {
  if (const auto text = parameter.AsText()) return *text;
  return converted = parameter.ToString();
}

Ref<IObject> MakeDataEntity(const Params& parameters) {
  auto entity = New<CDataEntity>();
  String type;
  String stamp;
  entity->Initialize(parameters[0].ToByteArray(), TextOf(parameters[1], type), TextOf(parameters[2], stamp));
  return entity;
}

} // namespace

// Its errors bear the name of an older creator.
const CreatorRow CtorDataEntity = {
    .Name = u"CtorDataEntity",
    .Specification = Class::DataEntity,
    .ParamCount = Class::DataEntity.ParamCount,
    .Make = MakeDataEntity,
    .LabelName = u"CtorSubscriptionAgent",
};

Ref<CDataEntity> modDataDocument::CreateADataEntity(const ByteArray& data, const String& DataType,
                                                    const String& TimeStamp) try {
  HuntERR::Check(bool(gObjectFactory), ErrorNumber::CannotCarryOut, u"The object factory does not exist.");
  return CreateAs<CDataEntity>(Class::DataEntity, data, DataType, TimeStamp);
} catch (...) {
  PassOn(u"modDataDocument.CreateADataEntity(data,DataType,TimeStamp)", {data, DataType, TimeStamp});
}

} // namespace portico

#include "document/entities/CDataPosition.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Guards.h"

namespace portico {

void CDataPosition::Initialize(const Ref<IDataEntity>& DataEntity, std::optional<std::int32_t> DataOffset) try {
  std::int32_t offset = DataOffset.value_or(DATA_firstIndex);
  if (!DataEntity) {
    HuntERR::Check(offset == DATA_firstIndex, ErrorNumber::InvalidArgument,
                   u"If DataEntity is nothing, DataOffset must be DATA_firstIndex");
  } else if (!DataOffset) {
    if (DataEntity->DataLength() <= 0) offset = NoDataOffset;
  } else if (offset != NoDataOffset) {
    HuntERR::Check(offset >= DATA_firstIndex && offset - DATA_firstIndex < DataEntity->DataLength(),
                   ErrorNumber::InvalidArgument, u"DataOffset is an invalid index into data.");
  }
  m_entity = DataEntity;
  m_offset = offset;
  m_initialized = true;
} catch (...) {
  PassOn(u"CDataPosition.Initialize(DataEntity,DataOffset)", {DataEntity, DataOffset ? Value(*DataOffset) : Value()});
}

std::int32_t CDataPosition::DataOffset() const try {
  CheckAccessible(m_initialized);
  return m_offset;
} catch (...) {
  PassOn(u"CDataPosition.DataOffset");
}

const Ref<IDataEntity>& CDataPosition::DataEntity() const try {
  CheckAccessible(m_initialized);
  return m_entity;
} catch (...) {
  PassOn(u"CDataPosition.DataEntity");
}

bool CDataPosition::IsLast() const try {
  CheckInitialized(m_initialized);
  return !m_entity;
} catch (...) {
  PassOn(u"CDataPosition.IsLast()");
}

bool CDataPosition::IsSame(const Ref<CDataPosition>& Position) const try {
  CheckInitialized(m_initialized);
  HuntERR::Check(bool(Position), ErrorNumber::InvalidArgument, u"Position cannot be nothing.");
  if (IsLast() && Position->IsLast()) return true;
  // The argument's entity is asked, and may be nothing: a selection asks its end, which is never in front of its start.
  return Position->DataEntity()->CompareToMe(m_entity) == 0 && Position->DataOffset() == m_offset;
} catch (...) {
  PassOn(u"CDataPosition.IsSame(Position)", {Position});
}

String CDataPosition::ID() const try {
  CheckInitialized(m_initialized);
  return m_entity->TimeStamp();
} catch (...) {
  PassOn(u"CDataPosition.IPosition_ID");
}

namespace {

Ref<IObject> MakeDataPosition(const Params& parameters) {
  auto position = New<CDataPosition>();
  const Value& offset = parameters[1];
  position->Initialize(parameters[0].ToObject<IDataEntity>(),
                       offset.IsEmpty() ? std::optional<std::int32_t>() : offset.ToLong());
  return position;
}

} // namespace

const CreatorRow CtorDataPosition = {
    .Name = u"CtorDataPosition",
    .Specification = Class::DataPosition,
    .ParamCount = Class::DataPosition.ParamCount,
    .Make = MakeDataPosition,
};

} // namespace portico

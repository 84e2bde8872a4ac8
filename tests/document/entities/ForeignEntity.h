#pragma once

#include "document/entities/CDataPosition.h"
#include "document/entities/IDataEntity.h"

#include <string>
#include <vector>

namespace portico::test {

/// A data entity of another class, which writes down who asks it what. It equals what has its stamp.
class ForeignEntity final : public IDataEntity, public std::enable_shared_from_this<ForeignEntity> {
public:
  ForeignEntity(String stamp, ByteArray data, std::vector<std::string>& calls)
      : Stamp(std::move(stamp)), Data(std::move(data)), m_calls(calls) {}
  StringView ClassName() const override { return u"ForeignEntity"; }

  Ref<IPosition> Position(std::optional<std::int32_t> DataOffset) override {
    Note("Position");
    auto position = New<CDataPosition>();
    position->Initialize(Ref<IDataEntity>(shared_from_this()), DataOffset);
    return position;
  }
  Ref<IAttributes> DataAttributes() const override {
    Note("DataAttributes");
    HuntERR::RaiseStandard(17);
  }
  String DataAttribute(const String&) const override { return {}; }
  void DataAttribute(const String& Name, const String& Value) override {
    m_calls.push_back(ToUtf8(Stamp) + ".DataAttribute(" + ToUtf8(Name) + "," + ToUtf8(Value) + ")");
  }
  std::int32_t DataLength() const override {
    Note("DataLength");
    return static_cast<std::int32_t>(Data.size());
  }
  ByteArray ReadData() const override {
    Note("ReadData");
    return Data;
  }
  void UpdateData(const ByteArray& data) override { Data = data; }
  std::int32_t CompareToMe(const Ref<IDataEntity>& DataEntity) const override {
    Note("CompareToMe");
    if (Fails) HuntERR::RaiseStandard(6);
    return DataEntity && DataEntity->TimeStamp() == Stamp ? 0 : 2;
  }

  String Stamp;
  ByteArray Data;
  bool Fails = false;

private:
  String IDataEntity_DataType() const override { return u"Foreign"; }
  String IDataEntity_TimeStamp() const override {
    Note("TimeStamp");
    return Stamp;
  }
  void Note(const char* call) const { m_calls.push_back(ToUtf8(Stamp) + "." + call); }
  std::vector<std::string>& m_calls;
};

} // namespace portico::test

#pragma once

#include "configuration/IAttributes.h"
#include "configuration/PackedText.h"
#include "framework/objects/ClassKey.h"

#include <cstdint>
#include <optional>

namespace portico {

class IPosition;

/// The first byte of an entity's data; and the offset of an entity that has none.
inline constexpr std::int32_t DATA_firstIndex = 0;
inline constexpr std::int32_t NoDataOffset = -1;

/// One run of bytes with a set of named text attributes: the atom of the conversation. Text in it is UTF-16
/// little-endian. Shared by reference between all who hold it.
class IDataEntity : public virtual IObject {
public:
  /// A position at that offset; without one at the first byte.
  virtual Ref<IPosition> Position(std::optional<std::int32_t> DataOffset = {}) = 0;
  /// The collection itself: what is written there is written to the entity.
  virtual Ref<IAttributes> DataAttributes() const = 0;
  /// An absent name raises `BadIndex`.
  virtual String DataAttribute(const String& Name) const = 0;
  /// Adds the attribute if the name is new.
  virtual void DataAttribute(const String& Name, const String& Value) = 0;
  /// The same of what is packed already.
  virtual void KeepAttribute(const KeptName& Name, const PackedText& Value) {
    DataAttribute(String(Name.Text), Value.ToString());
  }
  /// In bytes.
  virtual std::int32_t DataLength() const = 0;
  String DataType() const { return IDataEntity_DataType(); }
  /// A copy.
  virtual ByteArray ReadData() const = 0;
  /// A copy, as text.
  virtual String ReadText() const { return FromBytes(ReadData()); }
  /// Replaces the data by a copy of the argument.
  virtual void UpdateData(const ByteArray& data) = 0;
  String TimeStamp() const { return IDataEntity_TimeStamp(); }
  /// By content, never by identity: 0 the same, 2 attributes differ, 4 data differ, 6 both differ or the argument
  /// is null.
  virtual std::int32_t CompareToMe(const Ref<IDataEntity>& DataEntity) const = 0;

private:
  // What an entity also offers under the same name by itself: a call through the interface is told apart.
  virtual String IDataEntity_DataType() const = 0;
  virtual String IDataEntity_TimeStamp() const = 0;
};

/// Names of attributes. One that begins with "_" is private to the running system: stores never write it.
namespace AttributeName {
inline constexpr StringView DataType = u"DataType";
inline constexpr StringView Timestamp = u"Timestamp";
inline constexpr StringView DataFormat = u"DataFormat";
inline constexpr StringView RTFSelectionLength = u"_RTFSelectionLength";
inline constexpr StringView RTFVisibleTextOffset = u"_RTFVisibleTextOffset";
} // namespace AttributeName

/// Kinds of entities, and formatting names that never reach one.
namespace DataTypeName {
inline constexpr StringView Instruction = u"Instruction";
inline constexpr StringView AutomaticInstruction = u"AutomaticInstruction";
inline constexpr StringView Response = u"Response";
inline constexpr StringView Configuration = u"Configuration";
inline constexpr StringView Remark = u"Remark";
inline constexpr StringView White = u"WHITE";
} // namespace DataTypeName

namespace Class {

/// The data, the kind, and the time stamp; an empty one is drawn.
inline constexpr ClassKey<IDataEntity, ByteArray, StringView, StringView> DataEntity{u"DataEntity"};

} // namespace Class

} // namespace portico

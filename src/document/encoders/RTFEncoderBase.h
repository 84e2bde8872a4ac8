#pragma once

#include "document/entities/IDataEntity.h"
#include "platform/IRichTextBox.h"

namespace portico {

/// What both encoders share: they turn text into a minimal fragment, and show its kind by the formatting that they set
/// on the display's selection, never in the fragment. So the order is always: compose, then insert; and the formatting
/// of a line read back tells its kind.
///
/// `Compose` gives the fragment as a box takes it. `Encode` gives its RTF, and tries text and look on the scratch area
/// first; it is part of the contract, and nothing in the program calls it. Nothing is kept between calls: the scratch
/// area is everybody's.
class RTFEncoderBase : public IObject {
public:
  /// A null display raises `InvalidArgument`, no `gScratchArea` `MissingObject`.
  void Initialize(const Ref<IRichTextBox>& Display);
  /// A new entity from the first line of a fragment. Raises `NotInitialized` before `Initialize`, `InvalidArgument` for
  /// an empty text.
  Ref<IDataEntity> Decode(const String& RTFText) const;

protected:
  bool IsInitialized() const { return m_initialized; }
  const Ref<IRichTextBox>& ScratchArea() const { return m_scratch; }

  /// All thirteen values, and no text.
  void ResetScratchArea() const;
  void ApplyDataTypeFormat(StringView DataType) const;
  /// Sets all thirteen values on the display's selection.
  void ShowDataType(StringView DataType) const;
  /// Nothing is escaped: a backslash or brace in the text has whatever effect it has.
  static TextFragment Fragment(StringView text, StringView end);
  static constexpr StringView FragmentEnd = u"}\r\n";
  /// Sets the four values that this encoder knows a type by; unknown types are red.
  virtual void FormatDataType(SelectionFormat& format, StringView DataType) const;

private:
  String Label(StringView member) const { return String(ClassName()).append(member); }
  /// The kind that the scratch area's formatting shows.
  String DataTypeFromFormat(StringView plainText) const;

  bool m_initialized = false;
  Ref<IRichTextBox> m_scratch;
  Ref<IRichTextBox> m_display;
};

/// The looks of texts.
namespace TextLook {

// 0x00BBGGRR
inline constexpr std::int32_t Black = 0x000000;
inline constexpr std::int32_t Red = 0x0000FF;
inline constexpr std::int32_t Green = 0x00FF00;
inline constexpr std::int32_t DarkGreen = 0x007F00;
inline constexpr std::int32_t Blue = 0xFF0000;
inline constexpr std::int32_t White = 0xFFFFFF;

inline constexpr std::int32_t ResponseIndent = 150; ///< in the box's unit of indents

void Set(SelectionFormat& format, bool italic, bool bold, std::int32_t color, std::int32_t indent);

} // namespace TextLook
} // namespace portico

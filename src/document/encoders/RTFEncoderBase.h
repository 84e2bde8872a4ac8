#pragma once

#include "document/entities/IDataEntity.h"
#include "platform/IRichTextBox.h"

namespace portico {

/// How the kind of a text shows.
struct TextLook {
  // 0x00BBGGRR
  static constexpr std::int32_t Black = 0x000000;
  static constexpr std::int32_t Red = 0x0000FF;
  static constexpr std::int32_t Green = 0x00FF00;
  static constexpr std::int32_t DarkGreen = 0x007F00;
  static constexpr std::int32_t Blue = 0xFF0000;
  static constexpr std::int32_t White = 0xFFFFFF;

  bool Italic;
  bool Bold;
  std::int32_t Color;
  std::int32_t Indent = 0; ///< in the box's unit of indents

  void Format(SelectionFormat& format) const;
};

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
  static constexpr StringView FragmentEnd = u"}\r\n";
  /// By which this encoder knows a type; unknown types are red.
  virtual TextLook LookOf(StringView DataType) const;

private:
  String Label(StringView member) const { return String(ClassName()).append(member); }
  /// The kind that the scratch area's formatting shows.
  StringView DataTypeFromFormat(StringView plainText) const;

  bool m_initialized = false;
  Ref<IRichTextBox> m_scratch;
  Ref<IRichTextBox> m_display;
};

} // namespace portico

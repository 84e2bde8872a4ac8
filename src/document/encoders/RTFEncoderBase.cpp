#include "document/encoders/RTFEncoderBase.h"

#include "document/reports/ReportEntities.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/Guards.h"
#include "platform/IScratchArea.h"

#include <algorithm>
#include <array>

namespace portico {
namespace {

struct KnownType {
  StringView DataType;
  TextLook Look;
};

constexpr auto KnownTypes = std::to_array<KnownType>({
    {DataTypeName::Response, {.Italic = true, .Bold = false, .Color = TextLook::Black, .Indent = 150}},
    {DataTypeName::Instruction, {.Italic = false, .Bold = true, .Color = TextLook::Black}},
    {DataTypeName::AutomaticInstruction, {.Italic = false, .Bold = true, .Color = TextLook::Blue}},
    {DataTypeName::Configuration, {.Italic = false, .Bold = false, .Color = TextLook::Green}},
});

/// All thirteen values: black in the window's own font.
SelectionFormat PlainFormat() {
  return {.SelAlignment = 0,
          .SelBullet = false,
          .SelHangingIndent = 0,
          .SelIndent = 0,
          .SelRightIndent = 0,
          .SelBold = false,
          .SelCharOffset = 0,
          .SelColor = TextLook::Black,
          .SelFontName = gScratchArea->FontName(),
          .SelFontSize = gScratchArea->FontSize(),
          .SelItalic = false,
          .SelStrikeThru = false,
          .SelUnderline = false};
}

} // namespace

void TextLook::Format(SelectionFormat& format) const {
  format.SelItalic = Italic;
  format.SelBold = Bold;
  format.SelColor = Color;
  format.SelIndent = Indent;
}

void RTFEncoderBase::Initialize(const Ref<IRichTextBox>& Display) try {
  HuntERR::Check(bool(Display), ErrorNumber::InvalidArgument, u"Display cannot be nothing.");
  m_display = Display;
  m_scratch = gScratchArea->rtfScratchArea();
  m_initialized = true;
} catch (...) {
  PassOn(u"CStep.Initialize(Display)", {Display}); // the name under which this failure has always been reported
}

Ref<IDataEntity> RTFEncoderBase::Decode(const String& RTFText) const try {
  CheckInitialized(m_initialized);
  HuntERR::Check(!RTFText.empty(), ErrorNumber::InvalidArgument, u"RTF string cannot be empty.");
  ResetScratchArea();
  m_scratch->TextRTF(RTFText);
  const String text = m_scratch->Text();
  const auto entity = [](const ByteArray& data, StringView type) { return Create(Class::DataEntity, data, type, {}); };
  if (text.empty()) return entity({}, {});
  auto decoded = entity(ToBytes(StringView(text).substr(0, text.find(NewLine))), DataTypeFromFormat(text));
  modAppGlobals::TerminateEntityDataWithNewLine(decoded);
  return decoded;
} catch (...) {
  PassOn(Label(u".Decode(RTFText)"), {RTFText});
}

void RTFEncoderBase::ResetScratchArea() const {
  m_scratch->SelFormat(PlainFormat());
  m_scratch->Text({});
}

void RTFEncoderBase::ApplyDataTypeFormat(StringView DataType) const {
  SelectionFormat format;
  LookOf(DataType).Format(format);
  m_scratch->SelFormat(format);
}

void RTFEncoderBase::ShowDataType(StringView DataType) const {
  SelectionFormat format = PlainFormat();
  LookOf(DataType).Format(format);
  m_display->SelFormat(format);
}

TextLook RTFEncoderBase::LookOf(StringView DataType) const {
  const auto* known = std::find_if(KnownTypes.begin(), KnownTypes.end(),
                                   [DataType](const KnownType& row) { return row.DataType == DataType; });
  return known == KnownTypes.end() ? TextLook{.Italic = false, .Bold = false, .Color = TextLook::Red} : known->Look;
}

StringView RTFEncoderBase::DataTypeFromFormat(StringView plainText) const {
  const SelectionFormat format = m_scratch->SelFormat();
  if (format.SelItalic == true) return DataTypeName::Response;
  if (format.SelBold == true) {
    return format.SelColor == TextLook::Blue ? DataTypeName::AutomaticInstruction : DataTypeName::Instruction;
  }
  if (format.SelColor == TextLook::Green) return DataTypeName::Configuration;
  if (format.SelColor == TextLook::Red || plainText.empty()) return {};
  return DataTypeName::Instruction;
}

} // namespace portico

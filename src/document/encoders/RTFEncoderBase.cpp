#include "document/encoders/RTFEncoderBase.h"

#include "document/reports/ReportEntities.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "platform/IScratchArea.h"

namespace portico {
namespace {

constexpr StringView ParagraphMark = u"\\par ";

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

void TextLook::Set(SelectionFormat& format, bool italic, bool bold, std::int32_t color, std::int32_t indent) {
  format.SelItalic = italic;
  format.SelBold = bold;
  format.SelColor = color;
  format.SelIndent = indent;
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
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, MethodBeforeInitialize);
  HuntERR::Check(!RTFText.empty(), ErrorNumber::InvalidArgument, u"RTF string cannot be empty.");
  ResetScratchArea();
  m_scratch->TextRTF(RTFText);
  const String text = m_scratch->Text();
  const auto entity = [](const ByteArray& data, const String& type) {
    return Create(Class::DataEntity, data, type, {});
  };
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
  FormatDataType(format, DataType);
  m_scratch->SelFormat(format);
}

void RTFEncoderBase::ShowDataType(StringView DataType) const {
  SelectionFormat format = PlainFormat();
  FormatDataType(format, DataType);
  m_display->SelFormat(format);
}

TextFragment RTFEncoderBase::Fragment(StringView text, StringView end) {
  TextFragment fragment;
  fragment.Content.reserve(text.size() + ParagraphMark.size() + end.size());
  fragment.Content.append(text).append(ParagraphMark).append(end);
  return fragment;
}

void RTFEncoderBase::FormatDataType(SelectionFormat& format, StringView DataType) const {
  using namespace TextLook;
  if (DataType == DataTypeName::Configuration) return Set(format, false, false, Green, 0);
  if (DataType == DataTypeName::Instruction) return Set(format, false, true, Black, 0);
  if (DataType == DataTypeName::AutomaticInstruction) return Set(format, false, true, Blue, 0);
  if (DataType == DataTypeName::Response) return Set(format, true, false, Black, ResponseIndent);
  Set(format, false, false, Red, 0);
}

String RTFEncoderBase::DataTypeFromFormat(StringView plainText) const {
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

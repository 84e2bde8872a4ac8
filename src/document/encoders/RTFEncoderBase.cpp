#include "document/encoders/RTFEncoderBase.h"

#include "document/reports/ReportEntities.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "platform/IScratchArea.h"

namespace portico {
namespace {

constexpr StringView FragmentHeader = u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 ";
constexpr StringView ParagraphMark = u"\\par ";

} // namespace

SelectionFormat TextLook::Of(bool italic, bool bold, std::int32_t color, std::int32_t indent) {
  SelectionFormat format;
  format.SelItalic = italic;
  format.SelBold = bold;
  format.SelColor = color;
  format.SelIndent = indent;
  return format;
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
  SelectionFormat plain;
  plain.SelAlignment = 0;
  plain.SelBold = false;
  plain.SelBullet = false;
  plain.SelCharOffset = 0;
  plain.SelColor = TextLook::Black;
  plain.SelFontName = gScratchArea->FontName();
  plain.SelFontSize = gScratchArea->FontSize();
  plain.SelHangingIndent = 0;
  plain.SelIndent = 0;
  plain.SelItalic = false;
  plain.SelRightIndent = 0;
  plain.SelStrikeThru = false;
  plain.SelUnderline = false;
  m_scratch->SelFormat(plain);
  m_scratch->Text({});
}

String RTFEncoderBase::Fragment(StringView text, StringView end) {
  String fragment;
  fragment.reserve(FragmentHeader.size() + text.size() + ParagraphMark.size() + end.size());
  return fragment.append(FragmentHeader).append(text).append(ParagraphMark).append(end);
}

SelectionFormat RTFEncoderBase::FormatOf(StringView DataType) const {
  using namespace TextLook;
  if (DataType == DataTypeName::Configuration) return Of(false, false, Green, 0);
  if (DataType == DataTypeName::Instruction) return Of(false, true, Black, 0);
  if (DataType == DataTypeName::AutomaticInstruction) return Of(false, true, Blue, 0);
  if (DataType == DataTypeName::Response) return Of(true, false, Black, ResponseIndent);
  return Of(false, false, Red, 0);
}

void RTFEncoderBase::ApplyDataTypeFormat(StringView DataType) const { m_scratch->SelFormat(FormatOf(DataType)); }

void RTFEncoderBase::CopyFormatToDisplay() const { m_display->SelFormat(m_scratch->SelFormat()); }

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
